#!/usr/bin/env python3
"""Turn the IAPWS coefficient CSVs into C++ headers of constexpr tables.

    python3 tools/gen_tables.py [IAPWS_DIR]           write the tables
    python3 tools/gen_tables.py --check [IAPWS_DIR]   exit 1 if a committed table differs from the
                                                      CSVs (77, a skip, where they are missing)

Numbers are copied as the text of the CSV, so the C++ literal is digit for digit the release's.
Writes src/water/formulation/tables/*.h, and library_fits.h from the library's own fits in
src/water/formulation/library_fits.txt. Standard library only.
"""
import csv
import os
import sys

import iapws_forms

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
ARGS = [a for a in sys.argv[1:] if a != '--check']
SOURCE = ARGS[0] if ARGS else os.path.join(ROOT, '..', 'shared', 'iapws')
TABLE_DIR = os.path.join(ROOT, 'src', 'water', 'formulation', 'tables')

# (header, [(csv name, C++ name, shape, comment)]). Shapes:
#   ijn    PowerTerm {I, J, n}            ijn_frac  FractionalPowerTerm {I (double), J, n}
#   jn     IdealTerm {J0, n0}             n         double[]
#   tb     SaturationDensityTerm {tNum, tDen, b or c}
#   h0     double[] of column H           h1        ViscosityTerm {i, j, H}
#   dg     DielectricTerm {i, j (double), N}
#   log+ijn  first row is a lone coefficient (kName##LogCoefficient), the rest PowerTerm
HEADERS = [
    ('region1_coefficients.h', 'Region 1: the Gibbs equation and its backward equations.', [
        ('region1', 'kRegion1', 'ijn', 'gamma of region 1, IF97 Table 2'),
        ('t1_ph', 'kT1PH', 'ijn', 'T1(p,h), IF97 Table 6'),
        ('t1_ps', 'kT1PS', 'ijn', 'T1(p,s), IF97 Table 8'),
        ('p1_hs', 'kP1HS', 'ijn', 'p1(h,s), supplementary release p(h,s)'),
    ]),
    ('region2_coefficients.h', 'Region 2: the Gibbs equation, its subregion backward equations and boundaries.', [
        ('region2_ideal', 'kRegion2Ideal', 'jn', 'gamma0 of region 2, IF97 Table 10'),
        ('region2_residual', 'kRegion2Residual', 'ijn', 'gammar of region 2, IF97 Table 11'),
        ('t2a_ph', 'kT2APH', 'ijn', 'T2a(p,h), IF97 Table 20'),
        ('t2b_ph', 'kT2BPH', 'ijn', 'T2b(p,h), IF97 Table 21'),
        ('t2c_ph', 'kT2CPH', 'ijn', 'T2c(p,h), IF97 Table 22'),
        ('t2a_ps', 'kT2APS', 'ijn_frac', 'T2a(p,s), IF97 Table 25 (I in steps of 0.25)'),
        ('t2b_ps', 'kT2BPS', 'ijn', 'T2b(p,s), IF97 Table 26'),
        ('t2c_ps', 'kT2CPS', 'ijn', 'T2c(p,s), IF97 Table 27'),
        ('p2a_hs', 'kP2AHS', 'ijn', 'p2a(h,s), supplementary release p(h,s)'),
        ('p2b_hs', 'kP2BHS', 'ijn', 'p2b(h,s), supplementary release p(h,s)'),
        ('p2c_hs', 'kP2CHS', 'ijn', 'p2c(h,s), supplementary release p(h,s)'),
        ('h2ab_s', 'kH2AB', 'n', 'boundary h2ab(s), supplementary release p(h,s)'),
        ('b2bc', 'kB2BC', 'n', 'boundary B2bc, IF97 Table 19'),
    ]),
    ('region3_coefficients.h', 'Region 3: the Helmholtz equation and the backward equations of the 2004 releases.', [
        ('region3', 'kRegion3', 'log+ijn', 'phi of region 3, IF97 Table 30; row 1 is the coefficient of ln delta'),
        ('t3a_ph', 'kT3APH', 'ijn', 'T3a(p,h)'),
        ('t3b_ph', 'kT3BPH', 'ijn', 'T3b(p,h)'),
        ('v3a_ph', 'kV3APH', 'ijn', 'v3a(p,h)'),
        ('v3b_ph', 'kV3BPH', 'ijn', 'v3b(p,h)'),
        ('t3a_ps', 'kT3APS', 'ijn', 'T3a(p,s)'),
        ('t3b_ps', 'kT3BPS', 'ijn', 'T3b(p,s)'),
        ('v3a_ps', 'kV3APS', 'ijn', 'v3a(p,s)'),
        ('v3b_ps', 'kV3BPS', 'ijn', 'v3b(p,s)'),
        ('p3a_hs', 'kP3AHS', 'ijn', 'p3a(h,s)'),
        ('p3b_hs', 'kP3BHS', 'ijn', 'p3b(h,s)'),
        ('h3ab_p', 'kH3AB', 'n', 'boundary h3ab(p) between 3a and 3b'),
    ]),
    ('region5_coefficients.h', 'Region 5: the Gibbs equation of the 2007 revision.', [
        ('region5_ideal', 'kRegion5Ideal', 'jn', 'gamma0 of region 5, IF97 Table 37'),
        ('region5_residual', 'kRegion5Residual', 'ijn', 'gammar of region 5, IF97 Table 38'),
    ]),
    ('metastable_coefficients.h', 'The supplementary equation of metastable vapour.', [
        ('metastable_ideal', 'kMetastableIdeal', 'jn', 'gamma0 with the two readjusted n0'),
        ('metastable_residual', 'kMetastableResidual', 'ijn', 'gammar, IF97 Table 16'),
    ]),
    ('saturation_coefficients.h', 'The saturation line and the rough saturated densities.', [
        ('region4', 'kRegion4', 'n', 'n1 to n10 of the region 4 equations, IF97 Table 34'),
        ('sat_liquid_density', 'kSaturatedLiquidDensity', 'tb', "rho'(T), saturation properties release 1992"),
        ('sat_vapour_density', 'kSaturatedVapourDensity', 'tb', "rho''(T), saturation properties release 1992"),
        ('tsat_hs', 'kTsatHS', 'ijn', 'Tsat(h,s) of the two-phase area'),
    ]),
    ('boundary_coefficients.h', 'Region boundaries and the saturation curves in (h,s).', [
        ('b23', 'kB23', 'n', 'boundary B23, IF97 Table 1'),
        ('hb13_s', 'kHB13S', 'ijn', 'boundary hB13(s)'),
        ('tb23_hs', 'kTB23HS', 'ijn', 'boundary TB23(h,s)'),
        ('h3al_s', 'kH3aLiquidS', 'ijn', "h3a'(s), saturated liquid"),
        ('h2abv_s', 'kH2abVapourS', 'ijn', "h2ab''(s), saturated vapour"),
    ]),
    ('transport_coefficients.h', 'Viscosity 2008 (industrial form) and the static dielectric constant 1997.', [
        ('viscosity_h0', 'kViscosityH0', 'h0', 'H_i of mu0'),
        ('viscosity_h1', 'kViscosityH1', 'h1', 'the 21 non-zero H_ij of mu1'),
        ('dielectric_g', 'kDielectricG', 'dg', 'Harris-Alder g; row 12 is the term in (T/228 K - 1)'),
    ]),
]

STRUCT_OF = {
    'ijn': 'PowerTerm', 'ijn_frac': 'FractionalPowerTerm', 'jn': 'IdealTerm', 'tb': 'SaturationDensityTerm',
    'h1': 'ViscosityTerm', 'dg': 'DielectricTerm', 'log+ijn': 'PowerTerm',
}


def read(name):
    with open(os.path.join(SOURCE, name + '.csv'), newline='', encoding='utf-8') as f:
        return list(csv.DictReader(f))


def literal(text):
    text = text.strip()
    float(text)  # refuses anything that is not a number
    return text if any(c in text for c in '.eE') else text + '.0'


def row_text(shape, r):
    if shape in ('ijn', 'log+ijn'):
        return '{%s, %s, %s}' % (int(r['I']), int(r['J']), literal(r['n']))
    if shape == 'ijn_frac':
        return '{%s, %s, %s}' % (literal(r['I']), int(r['J']), literal(r['n']))
    if shape == 'jn':
        return '{%s, %s}' % (int(r['J0']), literal(r['n0']))
    if shape == 'tb':
        value = r.get('b') or r.get('c')
        return '{%s, %s, %s}' % (int(r['t_num']), int(r['t_den']), literal(value))
    if shape == 'h1':
        return '{%s, %s, %s}' % (int(r['i']), int(r['j']), literal(r['H']))
    if shape == 'dg':
        return '{%s, %s, %s}' % (int(r['i']), literal(r['j']), literal(r['N']))
    if shape == 'n':
        return literal(r['n'])
    if shape == 'h0':
        return literal(r['H'])
    raise ValueError(shape)


def form_text(cpp_name, form):
    """The reducing constants of one equation as a ReducedForm, with its form in words."""
    def signed(text):
        return (' - ' + text[1:] if text.startswith('-') else ' + ' + text) if text else ''

    def shown(argument, name):
        scale, shift = literal(argument.scale), literal(argument.shift or '0')
        if argument.kind == 'reversed':
            words = '%s - a/%s' % (argument.shift, argument.scale)
        elif argument.kind == 'reciprocal':
            words = '%s/a' % argument.scale + signed(argument.shift)
        else:
            words = 'a/%s' % argument.scale + signed(argument.shift)
        return '{%s, %s}' % (scale, shift), '%s = %s' % (name, words)
    x, x_words = shown(form.x, 'x')
    y, y_words = shown(form.y, 'y')
    result = literal(form.result or '1')
    how = {None: 'sum', 'times': '%s sum', 'over': '%s / sum', 'fourth': '%s sum^4', 'exp': '%s exp(sum)'}
    words = how[form.result_kind] % form.result if form.result_kind else 'sum'
    return ['// %s, %s; result %s' % (x_words, y_words, words),
            'inline constexpr ReducedForm %sForm = {%s, %s, %s};' % (cpp_name, x, y, result)]


def table_text(csv_name, cpp_name, shape, comment):
    rows = read(csv_name)
    out = ['// %s (%s.csv)' % (comment, csv_name)]
    if csv_name in FORMS:
        out += form_text(cpp_name, FORMS[csv_name])
    if shape == 'log+ijn':
        out.append('inline constexpr double %sLogCoefficient = %s;' % (cpp_name, literal(rows[0]['n'])))
        rows = rows[1:]
    element = STRUCT_OF.get(shape, 'double')
    out.append('inline constexpr %s %s[%d] = {' % (element, cpp_name, len(rows)))
    for r in rows:
        out.append('    %s,' % row_text(shape, r))
    out.append('};')
    return '\n'.join(out)


# How each equation reduces its arguments: the CSVs carry none of it, their README does.
FORMS = iapws_forms.forms(os.path.join(SOURCE, 'README.md')) if os.path.isdir(SOURCE) else {}
FITS = os.path.join(ROOT, 'src', 'water', 'formulation', 'library_fits.txt')
# The columns of each row type of library_fits.txt, the first of them a double, the rest ints
# (ThetaShape and double: all doubles).
FIT_COLUMNS = {
    'FitTerm': 'c,a,b,e2,e4,e8', 'ThetaFitTerm': 'c,a,b,e2,e4,e8,e1', 'PlainFitTerm': 'c,a,b',
    'PowerTerm': 'I,J,n', 'ThetaShape': 'd2,d1,t1,t2', 'double': 'c',
}


def fit_sections():
    """[(cpp name, row type or None for the scalars, rows as dicts)] in the file's order."""
    sections, lines = [], []
    for line in open(FITS, encoding='utf-8'):
        line = line.strip()
        if line.startswith('['):
            head = line.strip('[]').split()
            lines = []
            sections.append((head[0], head[1] if len(head) > 1 else None, lines))
        elif line and not line.startswith('#') and sections:
            lines.append(line)
    out = []
    for name, row_type, body in sections:
        columns = body[0].split(',')
        named = columns[0] == 'name'
        if row_type is not None and ','.join(columns[named:]) != FIT_COLUMNS[row_type]:
            raise ValueError('%s: columns %s, expected %s' % (name, body[0], FIT_COLUMNS[row_type]))
        out.append((name, row_type, [dict(zip(columns, r)) for r in csv.reader(body[1:])]))
    return out


def fit_row_text(row_type, r):
    columns = FIT_COLUMNS[row_type].split(',')
    if row_type == 'double':
        return literal(r['c'])
    if row_type == 'ThetaShape':
        return '{%s}' % ', '.join(literal(r[c]) for c in columns)
    if row_type == 'PowerTerm':
        return '{%s, %s, %s}' % (int(r['I']), int(r['J']), literal(r['n']))
    return '{%s}' % ', '.join([literal(r['c'])] + [str(int(r[c])) for c in columns[1:]])


def fits_text():
    parts = ['// Generated by tools/gen_tables.py from src/water/formulation/library_fits.txt; do not edit.',
             "// The library's own fits (RoughV3PT, pB23(h,s), hb(s), the region 5 starts); provenance in that file.",
             '#ifndef TAVLIB6_TABLES_LIBRARY_FITS_H', '#define TAVLIB6_TABLES_LIBRARY_FITS_H', '',
             '#include "water/formulation/tables/coefficient_types.h"', '', 'namespace tvl {', '']
    for name, row_type, rows in fit_sections():
        if row_type is None:
            for r in rows:
                comment = '  // ' + r['meaning'] if r['meaning'] else ''
                parts.append('inline constexpr double %s = %s;%s' % (r['name'], literal(r['value']), comment))
        elif 'name' in rows[0]:
            for r in rows:
                parts.append('inline constexpr %s %s = %s;' % (row_type, r['name'], fit_row_text(row_type, r)))
        else:
            parts.append('inline constexpr %s %s[%d] = {' % (row_type, name, len(rows)))
            parts += ['    %s,' % fit_row_text(row_type, r) for r in rows]
            parts.append('};')
        parts.append('')
    parts += ['}  // namespace tvl', '', '#endif', '']
    return '\n'.join(parts)


def outputs():
    files = {os.path.join(TABLE_DIR, 'library_fits.h'): fits_text()}
    for header, purpose, tables in HEADERS:
        guard = 'TAVLIB6_TABLES_' + header.replace('.', '_').upper()
        parts = ['// Generated by tools/gen_tables.py from the IAPWS CSV files; do not edit.',
                 '// ' + purpose, '#ifndef ' + guard, '#define ' + guard, '',
                 '#include "water/formulation/tables/coefficient_types.h"', '', 'namespace tvl {', '']
        for csv_name, cpp_name, shape, comment in tables:
            parts.append(table_text(csv_name, cpp_name, shape, comment))
            parts.append('')
        parts += ['}  // namespace tvl', '', '#endif', '']
        files[os.path.join(TABLE_DIR, header)] = '\n'.join(parts)
    return files


def main():
    if not os.path.isdir(SOURCE):
        print('no coefficient CSVs in %s' % SOURCE)
        return 77
    stale = []
    for path, text in outputs().items():
        old = open(path, encoding='utf-8').read() if os.path.exists(path) else None
        if old == text:
            continue
        if '--check' in sys.argv:
            stale.append(os.path.relpath(path, ROOT))
        else:
            with open(path, 'w', encoding='utf-8', newline='\n') as f:
                f.write(text)
    if stale:
        print('out of date, run python3 tools/gen_tables.py: ' + ', '.join(stale))
        return 1
    return 0


if __name__ == '__main__':
    sys.exit(main())
