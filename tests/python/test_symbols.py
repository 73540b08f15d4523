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
        # and the list is the complete interface of 376 functions
        interface_file = os.path.join(os.path.dirname(__file__), '..', 'data', 'export_names.txt')
        with open(interface_file, encoding='utf-8') as f:
            interface = {line.strip() for line in f if line.strip() and not line.startswith('#')}
        self.assertEqual(len(interface), 376)
        self.assertEqual(symbols, interface)


if __name__ == '__main__':
    unittest.main()
