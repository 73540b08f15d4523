"""The reducing constants of the IAPWS equations, read from the README of the coefficient CSVs.

The CSVs carry the coefficients only; how each equation reduces its arguments and scales its
result is written in that README's tables, in the release's units and again in SI ("SI: ...").
This module reads those forms, so that gen_tables.py can write the constants beside each table.

    forms(readme_path) -> {csv name: Form}

Form fields are the texts of the numbers (None where the equation has no such part):
    x, y         the two arguments of the sum: (scale, shift, kind) with kind 'divide' (a/scale),
                 'reciprocal' (scale/a) and shift signed as added ('reversed': shift - a/scale)
    result       the scale of the result in SI, and how it applies: 'times', 'over', 'fourth'
                 (scale times the sum to the fourth), 'exp' (scale times e to the sum)
"""
import collections
import re

Form = collections.namedtuple('Form', 'x y result result_kind')
Argument = collections.namedtuple('Argument', 'scale shift kind')

NUMBER = r'[0-9]+(?:\.[0-9]+)?(?:e[+-]?[0-9]+)?'
VARIABLE = r'1/σ1|[πησ][12]?'
SCALE = re.compile(r'(%s) = ([phs])/(%s)' % (VARIABLE, NUMBER))
RECIPROCAL = re.compile(r'(1/σ1) = (%s)/([phs])' % NUMBER)
FACTOR = re.compile(r'(?:\(([^()]*)\)|(%s))\^[IJ]' % VARIABLE)
SHIFTED = re.compile(r'^(%s) ([+−]) (%s)$' % (VARIABLE, NUMBER))
REVERSED = re.compile(r'^(%s) − (%s)$' % (NUMBER, VARIABLE))
SI_RESULT = re.compile(r'[pThv] = (%s) (exp\(Σ\)|\(Σ\)\^4|/ Σ|Σ)' % NUMBER)
UNIT_RESULT = re.compile(r'[pThv] = (%s) (K|MPa|kJ/kg|m³/kg) ([×/]) (\(?)' % NUMBER)
TO_SI = {'K': 1.0, 'MPa': 1e6, 'kJ/kg': 1e3, 'm³/kg': 1.0}


def si_text(number, unit):
    """A number in the release's unit as SI text: unchanged where the unit is SI already."""
    factor = TO_SI[unit]
    return number if factor == 1.0 else repr(float(number) * factor)


def parse_row(text, known):
    formula, _, si = text.partition('SI:')
    for variable, _, scale in SCALE.findall(si):
        known[variable] = scale
    for variable, scale, _ in RECIPROCAL.findall(si):
        known[variable] = scale
    arguments = []
    for inner, bare in FACTOR.findall(formula.split('Σ', 1)[-1]):
        if bare:
            arguments.append(Argument(known[bare], None, 'divide'))
            continue
        shifted, reversed_ = SHIFTED.match(inner), REVERSED.match(inner)
        if shifted:
            variable, sign, number = shifted.groups()
            kind = 'reciprocal' if variable.startswith('1/') else 'divide'
            arguments.append(Argument(known[variable], ('-' if sign == '−' else '') + number, kind))
        elif reversed_:
            number, variable = reversed_.groups()
            arguments.append(Argument(known[variable], number, 'reversed'))
        else:
            raise ValueError('cannot read the factor (%s) in: %s' % (inner, text))
    if len(arguments) != 2:
        raise ValueError('expected two factors in: ' + text)
    result = SI_RESULT.search(si)
    if result:
        kind = {'Σ': 'times', '/ Σ': 'over', '(Σ)^4': 'fourth', 'exp(Σ)': 'exp'}[result.group(2)]
        return Form(arguments[0], arguments[1], result.group(1), kind)
    result = UNIT_RESULT.search(formula)
    if not result:
        return Form(arguments[0], arguments[1], None, None)
    number, unit, operator, bracket = result.groups()
    kind = 'over' if operator == '/' else 'exp' if 'exp(' in formula else 'fourth' if bracket else 'times'
    return Form(arguments[0], arguments[1], si_text(number, unit), kind)


def forms(readme_path):
    """The forms of every table row of the README whose sum has two factors."""
    out, known = {}, {}
    for line in open(readme_path, encoding='utf-8'):
        if line.startswith('## '):
            known = {}
        default = re.search(r'\(SI: (π) = p/(%s)\)' % NUMBER, line)
        if default and not line.startswith('|'):
            known[default.group(1)] = default.group(2)
        row = re.match(r'\| `([a-z0-9_]+)\.csv` \|[^|]*\|[^|]*\| (.*) \|$', line.rstrip('\n'))
        if not row or 'Σ n' not in row.group(2) or 'τ' in row.group(2):
            continue
        out[row.group(1)] = parse_row(row.group(2), known)
    return out


if __name__ == '__main__':
    import os
    import sys
    here = os.path.dirname(os.path.abspath(__file__))
    path = sys.argv[1] if len(sys.argv) > 1 else os.path.join(here, '..', '..', 'shared', 'iapws', 'README.md')
    for name, form in forms(path).items():
        print(name, form)
