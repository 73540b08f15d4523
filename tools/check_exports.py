#!/usr/bin/env python3
"""Check the export table of built libraries against the list of exports.

    python3 tools/check_exports.py LIBRARY...

LIBRARY is tavlib6.dll (read with objdump -p) or libtavlib6.so (read with nm -D). Each must
export exactly the functions of src/exports/exports.txt, under their plain names (no
leading underscore, no @N of __stdcall), and a DLL may import nothing but Windows' own
libraries (no mingw runtime beside it). The list must hold exactly the names of the
complete interface, tests/data/export_names.txt, no more and no fewer.
Exit status 0 when all is well, 1 otherwise. Standard library only.
"""
import os
import re
import shutil
import subprocess
import sys

TOOLS = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(TOOLS)
INTERFACE = os.path.join(ROOT, 'tests', 'data', 'export_names.txt')
SYSTEM_DLLS = {'kernel32.dll', 'user32.dll', 'shell32.dll', 'advapi32.dll', 'version.dll', 'msvcrt.dll',
               'gdi32.dll', 'ole32.dll', 'comctl32.dll'}

sys.path.insert(0, TOOLS)
import gen_exports  # noqa: E402  (the parser of exports.txt)


def listed_names():
    return ['tvl' + e.name for family in gen_exports.parse() for e in family.exports]


def interface_names():
    with open(INTERFACE, encoding='utf-8') as f:
        return [line.strip() for line in f if line.strip() and not line.startswith('#')]


def objdump_program():
    for name in ('x86_64-w64-mingw32-objdump', 'i686-w64-mingw32-objdump', 'objdump'):
        if shutil.which(name):
            return name
    sys.exit('check_exports: no objdump found (apt-get install binutils-mingw-w64)')


def dll_tables(path):
    """(exported names, imported DLL names) from objdump -p."""
    text = subprocess.run([objdump_program(), '-p', path], capture_output=True, text=True, check=True).stdout
    exports, imports, in_table = [], [], False
    for line in text.splitlines():
        if line.startswith('[Ordinal/Name Pointer] Table'):
            in_table = True
            continue
        if in_table:
            m = re.match(r'\s*\[\s*\d+\]\s+(\S+)\s*$', line)
            if m:
                exports.append(m.group(1))
                continue
            in_table = False
        m = re.match(r'\s*DLL Name:\s*(\S+)', line)
        if m:
            imports.append(m.group(1))
    return exports, imports


def shared_object_exports(path):
    text = subprocess.run(['nm', '-D', '--defined-only', path], capture_output=True, text=True, check=True).stdout
    return [line.split()[-1] for line in text.splitlines() if line.strip()]


def check_library(path, listed):
    """Problems of one library, as lines of text."""
    problems = []
    if path.lower().endswith('.dll'):
        exported, imports = dll_tables(path)
        foreign = [name for name in imports if name.lower() not in SYSTEM_DLLS]
        if foreign:
            problems.append('needs DLLs beside it: ' + ', '.join(foreign))
    else:
        exported = shared_object_exports(path)
    decorated = [name for name in exported if '@' in name or name.startswith('_')]
    if decorated:
        problems.append('decorated names: ' + ', '.join(decorated[:10]))
    duplicates = sorted({name for name in exported if exported.count(name) > 1})
    if duplicates:
        problems.append('exported twice: ' + ', '.join(duplicates))
    missing = sorted(set(listed) - set(exported))
    extra = sorted(set(exported) - set(listed))
    if missing:
        problems.append('%d listed exports missing: %s' % (len(missing), ', '.join(missing[:20])))
    if extra:
        problems.append('%d exports not in the list: %s' % (len(extra), ', '.join(extra[:20])))
    return problems, len(exported)


def main(argv):
    libraries = argv
    listed = listed_names()
    interface = interface_names()
    failed = False

    unknown = sorted(set(listed) - set(interface))
    if unknown:
        print('listed exports that are not part of the interface: ' + ', '.join(unknown))
        failed = True
    not_yet = [name for name in interface if name not in set(listed)]
    if not_yet:
        print('%d of the %d exports of the interface are not listed' % (len(not_yet), len(interface)))
        print('  ' + ' '.join(not_yet))
        failed = True

    for path in libraries:
        problems, count = check_library(path, listed)
        for problem in problems:
            print('%s: %s' % (path, problem))
        if not problems:
            print('%s: exactly the %d listed exports, undecorated' % (path, count))
        failed = failed or bool(problems)
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
