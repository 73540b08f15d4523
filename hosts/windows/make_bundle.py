#!/usr/bin/env python3
"""Pack the Windows bundle: both DLLs, their import libraries, the headers, the Excel module,
the help file and the README for spreadsheet users, under one folder tavlib6-windows/.

    make_bundle.py ZIP WIN64_BUILD WIN32_BUILD CHM

The batch library (libtavlib6x.dll) goes in beside each tavlib6.dll where it was built.
Standard library only.
"""
import os
import sys
import zipfile

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))
FOLDER = 'tavlib6-windows'


def members(win64, win32, chm):
    """(path in the zip, file on disk) of everything that goes in."""
    files = [('README.txt', os.path.join(HERE, 'README.txt')),
             ('tavlib6.bas', os.path.join(ROOT, 'hosts', 'excel', 'tavlib6.bas')),
             ('tavlib6.chm', chm),
             ('include/tavlib6.h', os.path.join(ROOT, 'include', 'tavlib6.h'))]
    for arch, build in (('x64', win64), ('x86', win32)):
        files += [(arch + '/tavlib6.dll', os.path.join(build, 'tavlib6.dll')),
                  (arch + '/libtavlib6.dll.a', os.path.join(build, 'libtavlib6.dll.a'))]
        batch = os.path.join(build, 'libtavlib6x.dll')
        if os.path.exists(batch):
            files += [(arch + '/libtavlib6x.dll', batch),
                      (arch + '/libtavlib6x.dll.a', os.path.join(build, 'batch', 'libtavlib6x.dll.a'))]
    if any(name.endswith('libtavlib6x.dll') for name, _ in files):
        files.append(('include/tavlib6x.h', os.path.join(ROOT, 'batch', 'tavlib6x.h')))
    return files


def main(argv):
    if len(argv) != 4:
        sys.exit(__doc__)
    target, win64, win32, chm = argv
    files = members(win64, win32, chm)
    missing = [path for _, path in files if not os.path.exists(path)]
    if missing:
        sys.exit('make_bundle: missing ' + ', '.join(missing))
    os.makedirs(os.path.dirname(os.path.abspath(target)), exist_ok=True)
    with zipfile.ZipFile(target, 'w', zipfile.ZIP_DEFLATED) as bundle:
        for name, path in files:
            data = open(path, 'rb').read()
            if name.endswith(('.txt', '.h')):
                data = data.replace(b'\r\n', b'\n').replace(b'\n', b'\r\n')  # Notepad's line ends
            bundle.writestr(FOLDER + '/' + name, data)
    for info in zipfile.ZipFile(target).infolist():
        print('%9d  %s' % (info.file_size, info.filename))
    print('%s: %d files' % (target, len(files)))
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
