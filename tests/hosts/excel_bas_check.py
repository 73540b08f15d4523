#!/usr/bin/env python3
"""The Declare lines of hosts/excel/tavlib6.bas against exports.txt and the DLLs.

    excel_bas_check.py [tavlib6.dll ...]

For each export: a 64-bit and a 32-bit declaration with the argument types and passing that
its C signature needs, arguments that fill exactly the __stdcall stack bytes of the 32-bit
module definition (tvlPST@8), and a worksheet function of its name. With DLLs, their export
tables hold exactly the declared names.
"""
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, 'tools'))
import check_exports  # noqa: E402
import gen_exports  # noqa: E402

# What a C type needs from VBA on 64-bit and on 32-bit Office.
NEEDED = {'double': ('ByVal Double', 'ByVal Double'), 'int32': ('ByVal Long', 'ByVal Long'),
          'text': ('ByVal String', 'ByVal String'), 'double*': ('ByRef Double', 'ByRef Double'),
          'window': ('ByVal LongPtr', 'ByVal Long'), 'word': ('ByVal LongPtr', 'ByVal Long')}
RESULTS = {'double': ('Double', 'Double'), 'int32': ('Long', 'Long'), 'text': ('LongPtr', 'Long'),
           'wtext': ('LongPtr', 'Long')}
STACK_BYTES = {'ByVal Double': 8, 'ByVal Long': 4, 'ByVal String': 4, 'ByRef Double': 4}
DECLARE = re.compile(r'Private Declare (PtrSafe )?Function (\w+) Lib "tavlib6\.dll" Alias "(\w+)" \((.*)\) As (\w+)$')


def declarations(lines):
    """{bits: {export: (argument list, result type)}} from the #If Win64 / #Else branches."""
    found, bits = {64: {}, 32: {}}, None
    for line in lines:
        bits = {'#If Win64 Then': 64, '#Else': 32, '#End If': None}.get(line, bits)
        m = DECLARE.match(line)
        if m:
            if bits is None or (m.group(1) is not None) != (bits == 64):
                sys.exit('declared outside its branch: ' + line)
            args = [' '.join(a.split()[0:1] + a.split()[3:]) for a in m.group(4).split(', ') if a]
            found[bits][m.group(3)] = (args, m.group(5))
    return found


def main(dlls):
    lines = open(os.path.join(ROOT, 'hosts', 'excel', 'tavlib6.bas'), encoding='ascii').read().splitlines()
    declared = declarations(lines)
    defined = {m.group(1) for m in map(re.compile(r'Public Function (tvl\w+)\(').match, lines) if m}
    x86 = dict(re.findall(r'^\s+(\w+)@(\d+)$', open(os.path.join(ROOT, 'src', 'exports', 'tavlib6_x86.def')).read(), re.M))
    problems = []
    exports = [e for f in gen_exports.parse() for e in f.exports]
    for e in exports:
        name = 'tvl' + e.name
        for column, bits in ((0, 64), (1, 32)):
            want = ([NEEDED[k][column] for k, _ in e.flat_params()], RESULTS[e.result][column])
            if declared[bits].get(name) != want:
                problems.append('%s, %d-bit: declared %s, needs %s' % (name, bits, declared[bits].get(name), want))
        if sum(STACK_BYTES.get(a, 4) for a in declared[32].get(name, ([], ''))[0]) != int(x86.get(name, -1)):
            problems.append('%s: 32-bit arguments do not fill %s@%s' % (name, name, x86.get(name)))
        if name not in defined:
            problems.append('%s: no worksheet function' % name)
    for bits in (64, 32):
        extra = set(declared[bits]) - {'tvl' + e.name for e in exports}
        problems += ['%s declared (%d-bit) but not exported' % (n, bits) for n in sorted(extra)]
    for dll in dlls:
        table = set(check_exports.dll_tables(dll)[0])
        for bits in (64, 32):
            if table != set(declared[bits]):
                problems.append('%s: export table and %d-bit declarations differ in %s'
                                % (dll, bits, sorted(table ^ set(declared[bits]))[:10]))
    if any(len(line) > 1023 for line in lines):
        problems.append('a line is longer than the 1023 characters VBA reads')
    for problem in problems:
        print(problem)
    print('tavlib6.bas: %d exports declared for 64-bit and 32-bit, %d DLL(s) compared, %d problems'
          % (len(exports), len(dlls), len(problems)))
    return 1 if problems else 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
