#!/usr/bin/env python3
"""The Calc extension in a real, headless LibreOffice against the library's tvl command.

    python3 tests/hosts/calc_test.py BUILD

Builds BUILD/tavlib6.oxt (hosts/calc/build.sh), calculates in LibreOffice (hosts/calc/recalc.py,
which keeps the sheet as BUILD/calc/calc_test.ods) the formulas of calc_cases.txt and one formula
for every worksheet function, with the arguments of STANDARD, and compares each cell with
`BUILD/tvl` for the same call: values to a relative 1e-12, texts as they stand, a failing call as
Err:502 and TVLERROR(...) as the library's text. Exits 77 (skipped) without LibreOffice.
"""
import csv
import math
import os
import shutil
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))
HOST = os.path.join(ROOT, 'hosts', 'calc')
sys.path[:0] = [os.path.join(ROOT, 'tools'), HOST]
import gen_calc  # noqa: E402
from recalc import parse_lines  # noqa: E402

# Arguments by name for the formula of every function; a call that fails must fail alike.
STANDARD = {'p': 1e6, 'T': 450.0, 'h': 2.9e6, 's': 6800.0, 'x': 0.5, 'p2': 1e4, 'eff': 0.85, 'r': 500.0,
            'r0': 500.0, 'v': 0.2, 'u': 2.6e6, 'cp': 4200.0, 'cv': 3000.0, 'w': 1500.0, 'jt': 1e-7,
            'tc': 0.6, 'eta': 1e-4, 'nu': 1e-6, 'pr': 1.5, 'k': 1.3, 'L': 5.893e-7, 'id': 1,
            'component': 1, 'mass': 1.0, 'volume': 1.0, 'gs': 'N2:79;O2:21', 'name': 'AirMix',
            'species': 'O2', ('int32', 'species'): 1}
# Functions that change the library's state get arguments that change nothing for the other cells:
# a setter the value of its getter, the catalogue a gas id and a name that do not exist. Calc
# evaluates cells in an order of its own, so the ids of new gases and the count of gases are not
# compared, only their names; gDELETEGASES (it deletes AirMix too) stays out.
STATEFUL = ('SET', 'gSET', 'gNEW', 'gDELETE', 'gADD')
ORDER_NAMES = {'GNEWID', 'GNEWIDNAME', 'GNEWIDGS', 'GGASESCOUNT'}
PROGRAMMATIC = 'ORG.TAVLIB6.CALC.FUNCTIONS.'


def skip_reason():
    if not shutil.which('soffice'):
        return 'no soffice (libreoffice-calc)'
    if not os.path.exists('/usr/lib/libreoffice/sdk/bin/unoidl-write'):
        return 'no unoidl-write (libreoffice-dev)'
    if subprocess.run(['/usr/bin/python3', '-c', 'import uno'], capture_output=True).returncode:
        return 'no Python-UNO bridge (python3-uno)'
    return None


def standard_formulas(build):
    formulas = []
    for export, inputs, outputs in gen_calc.functions():
        standard = dict(STANDARD)
        if export.name == 'gDELETEGASES':
            continue
        if export.name.startswith(STATEFUL):
            standard.update(id=99, name='CalcTestGas')
            if 'SET' in export.name:
                _, _, values = tvl(build, export.name.replace('SET', 'GET', 1), [])
                standard['v'] = standard['mode'] = values[0] if values else 0
        values = [standard.get((t, n), standard[n]) for t, n in inputs]
        args = ['"%s"' % v if t == 'text' else '%d' % v if t == 'int32' else repr(v)
                for (t, _), v in zip(inputs, values)]
        formulas.append(('=%s(%s)' % (gen_calc.names(export), ';'.join(args)), len(outputs)))
    return formulas


def split_call(formula):
    name, _, rest = formula[1:].partition('(')
    return name, next(csv.reader([rest[:-1]], delimiter=';', quotechar='"')) if rest[:-1] else []


def tvl(build, name, args):
    """(code, text or None, values): what the tvl command gives for a worksheet function's call."""
    run = subprocess.run([os.path.join(build, 'tvl'), '-p', '17', name] + args, capture_output=True, text=True)
    if run.returncode:
        code, _, text = run.stderr.strip()[len('error '):].partition(': ')
        return int(code), text, []
    lines = run.stdout.split('\n')[:-1]
    values = [line.partition('=')[2] if '=' in line else line for line in lines]
    try:
        return 0, None, [float(v) for v in values]
    except ValueError:
        return 0, '"%s"' % run.stdout.rstrip('\n'), []


def expected(build, formula, width):
    """The cells that Calc must show for a formula, each a float or a string; None: any."""
    name, args = split_call(formula)
    if name in ORDER_NAMES:
        return None
    if name == 'TVLERROR':
        code, text, _ = tvl(build, args[0], args[1:])
        return ['"%s"' % (text if code else '0. No error occured.')]
    code, text, values = tvl(build, name, args)
    if code or any(math.isnan(v) for v in values):
        return ['Err:502'] * max(width, 1)
    if text is not None:
        return [text]
    return values[:max(width, 1)]


def matches(want, got):
    if want is None:
        return not got.startswith('Err')
    if isinstance(want, str):
        return want == got
    try:
        value = float(got)
    except ValueError:
        return False
    return value == want or abs(value - want) <= 1e-12 * abs(want)


def main():
    build = os.path.abspath(sys.argv[1])
    reason = skip_reason()
    if reason:
        print('calc: skipped, %s' % reason)
        return 77
    subprocess.run(['sh', os.path.join(HOST, 'build.sh'), build], check=True, stdout=subprocess.DEVNULL)
    formulas = parse_lines(os.path.join(HERE, 'calc_cases.txt')) + standard_formulas(build)
    with tempfile.TemporaryDirectory() as work:
        listing = os.path.join(work, 'formulas.txt')
        with open(listing, 'w', encoding='utf-8') as f:
            f.writelines('%s\t%d\n' % (text, width) if width else text + '\n' for text, width in formulas)
        run = subprocess.run(['/usr/bin/python3', os.path.join(HOST, 'recalc.py'), os.path.join(build, 'tavlib6.oxt'),
                              listing, os.path.join(build, 'calc', 'calc_test.ods'), '--timeout', '300',
                              '--functions', os.path.join(work, 'functions.tsv')], capture_output=True, text=True)
        wizard = {line.split('\t')[0]: line.rstrip('\n').split('\t')[1:]
                  for line in open(os.path.join(work, 'functions.tsv'), encoding='utf-8')} if not run.returncode else {}
    if run.returncode:
        print('calc: LibreOffice failed (%d):\n%s%s' % (run.returncode, run.stdout, run.stderr))
        return 1
    rows = run.stdout.split('\n')[:len(formulas)]
    cells = matching = 0
    for (formula, width), row in zip(formulas, rows):
        stored, *got = row.split('\t')
        want = expected(build, formula, width) or [None] * len(got)
        cells += len(got)
        # Every call must reach the add-in: a name that Calc took for itself would be stored bare.
        good = stored.lstrip('{').startswith('=' + PROGRAMMATIC + split_call(formula)[0].upper() + '(')
        good = good and len(got) == len(want) and all(matches(w, g) for w, g in zip(want, got))
        matching += len(got) if good else 0
        if not good:
            print('mismatch: %s gave %s, the library %s' % (formula, got, want))
    # The Function Wizard shows each function with a description and its arguments with theirs.
    described, table = 0, gen_calc.functions()
    for export, inputs, _ in table:
        shown = wizard.get(gen_calc.names(export), [])
        if shown[:1] and shown[0] and [a.split(':')[0] for a in shown[1:]] == [n for _, n in inputs]:
            described += 1
        else:
            print('Function Wizard: %s shows %s' % (gen_calc.names(export), shown))
    print('calc: %d cells computed in LibreOffice, %d matching' % (cells, matching))
    print('calc: %d of %d functions with their arguments in the Function Wizard' % (described, len(table)))
    return 0 if cells and cells == matching and len(rows) == len(formulas) and described == len(table) else 1


if __name__ == '__main__':
    sys.exit(main())
