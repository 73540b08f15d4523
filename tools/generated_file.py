"""Writing a generated file, or with --check telling whether the committed one is current.

Shared by the generators of the host modules (gen_vba.py, gen_mex.py). Standard library only.
"""
import os
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


def update(relative_path, text, generator):
    """Writes text to ROOT/relative_path byte for byte; with --check on the command line only
    compares. Returns the exit status: 1 when --check finds the file out of date."""
    path = os.path.join(ROOT, relative_path)
    old = open(path, 'rb').read().decode('utf-8') if os.path.exists(path) else None
    if old == text:
        return 0
    if '--check' in sys.argv:
        print('out of date, run python3 %s: %s' % (generator, relative_path))
        return 1
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, 'wb') as f:
        f.write(text.encode('utf-8'))
    return 0
