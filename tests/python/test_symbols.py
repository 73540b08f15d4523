"""The shared library exports exactly the listed functions, with C linkage, and nothing else."""
import os
import shutil
import subprocess
import unittest

from tavlib6._exports import EXPORTS

LIBRARY = os.environ.get('TAVLIB6_LIBRARY', '')


@unittest.skipUnless(LIBRARY.endswith('.so') and shutil.which('nm'), 'needs the shared library and nm')
class SymbolTest(unittest.TestCase):
    def test_dynamic_symbols_are_exactly_the_exports(self):
        out = subprocess.run(['nm', '-D', '--defined-only', LIBRARY], capture_output=True, text=True, check=True).stdout
        symbols = {line.split()[-1] for line in out.splitlines() if line.strip()}
        expected = {'tvl' + name for name, *_ in EXPORTS}
        self.assertEqual(symbols, expected)


if __name__ == '__main__':
    unittest.main()
