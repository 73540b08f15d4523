"""What the Windows build shares with this one: the error texts of the DLL's string resources,
the product texts and version, the module definition files, and the complete list of exports."""
import os
import re
import subprocess
import sys
import unittest

import tavlib6
from tavlib6._exports import EXPORTS

SOURCE = os.environ.get('TAVLIB6_SOURCE_DIR', os.path.join(os.path.dirname(__file__), '..', '..'))
LIBRARY = os.environ.get('TAVLIB6_LIBRARY', '')
TVL = os.environ.get('TVL', os.path.join(SOURCE, 'build', 'tvl'))


def read(*parts):
    with open(os.path.join(SOURCE, *parts), encoding='utf-8') as f:
        return f.read()


def header_macros():
    """The string and number macros of product_texts.h, adjacent literals joined."""
    text = read('src', 'desktop', 'product_texts.h').replace('\\\n', ' ')
    macros = {}
    for name, body in re.findall(r'^#define (TVL_\w+)[ \t]+(.+)$', text, re.M):
        literals = re.findall(r'"((?:[^"\\]|\\.)*)"', body)
        if literals:
            macros[name] = ''.join(literals)
        elif body.strip().isdigit():
            macros[name] = body.strip()
    return macros


class ResourceTextTest(unittest.TestCase):
    def test_error_texts_of_the_string_table_are_the_library_texts(self):
        table = dict((int(i), t) for i, t in re.findall(r'^\s*(1[12]\d), "(.*)"\s*$', read('src', 'desktop', 'windows', 'tavlib6.rc'), re.M))
        codes = [c for c in range(0, 13) if c not in (5, 6, 7, 10)]
        self.assertEqual(sorted(table), [c + 115 for c in codes])
        for code in codes:
            tavlib6.raw.tvlSETLASTERROR(code)
            self.assertEqual(tavlib6.GETLASTERRORDESCRIPTION(), table[code + 115], code)
        tavlib6.raw.tvlSETLASTERROR(0)

    def test_version_of_the_resources_is_the_project_version(self):
        macros = header_macros()
        project = re.search(r'project\(tavlib6 VERSION ([\d.]+)', read('CMakeLists.txt')).group(1)
        parts = [macros['TVL_VERSION_' + p] for p in ('MAJOR', 'MINOR', 'BUILD', 'REVISION')]
        self.assertEqual('.'.join(parts), project)
        self.assertEqual(macros['TVL_VERSION_TEXT'], project)

    def test_tvl_about_prints_name_version_and_credits(self):
        run = subprocess.run([TVL, '--about'], capture_output=True, text=True, timeout=60)
        self.assertEqual(run.returncode, 0)
        lines = run.stdout.splitlines()
        self.assertEqual(lines[:2], ['Tavelin (tm)', 'Version: 6.5.0.64'])
        self.assertIn('Tavelin is a program for calculating properties of some substances', lines)
        self.assertIn('Tavelin authors:', lines)
        self.assertNotIn('%%', run.stdout)
        self.assertNotIn('\r', run.stdout)


class ExportListTest(unittest.TestCase):
    def test_stdcall_sizes_count_the_argument_bytes(self):
        listed = read('src', 'exports', 'tavlib6_x86.def')
        for name, size in (('tvlGETLASTERROR', 0), ('tvlSETLASTERROR', 4), ('tvlPST', 8), ('tvlH1PT', 16),
                           ('tvlPT1HS', 24), ('tvlVUSHCVWDERPT1PT', 16 + 14 * 4), ('tvlSHOWABOUT', 4)):
            self.assertRegex(listed, r'\n    %s@%d\n' % (name, size))

    @unittest.skipUnless(LIBRARY.endswith('.so'), 'needs the shared library')
    def test_library_exports_exactly_the_complete_interface(self):
        run = subprocess.run([sys.executable, os.path.join(SOURCE, 'tools', 'check_exports.py'), LIBRARY],
                             capture_output=True, text=True, timeout=120)
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)
        self.assertIn('exactly the 376 listed exports', run.stdout)

    def test_interface_list_has_376_distinct_names(self):
        interface = [line for line in read('tests', 'data', 'export_names.txt').splitlines() if line and line[0] != '#']
        self.assertEqual(len(interface), 376)
        self.assertEqual(len(set(interface)), 376)
        self.assertEqual(sorted(interface), sorted('tvl' + name for name, *_ in EXPORTS))

if __name__ == '__main__':
    unittest.main()
