"""Ideal gases from Python and from the tvl command: composition texts as str and as arguments."""
import os
import subprocess
import unittest

import tavlib6

TVL = os.environ.get('TVL', os.path.join(os.path.dirname(__file__), '..', '..', 'build', 'tvl'))


def tvl(*args):
    return subprocess.run([TVL, *args], capture_output=True, text=True, timeout=60)


class GasModuleTest(unittest.TestCase):
    def test_text_argument_as_str_and_as_bytes(self):
        by_str = tavlib6.gCPGST('N2:79;O2:21', 300.0)
        self.assertEqual(by_str, tavlib6.gCPGST(b'N2:79;O2:21', 300.0))
        self.assertAlmostEqual(by_str, 1011.45243, delta=5e-5)

    def test_text_result_comes_back_as_str(self):
        self.assertEqual(tavlib6.gGSID(13), 'N2:0.7803;O2:0.2099;CO2:0.0003;Ar:0.0094;H2:0.0001;')
        self.assertEqual(tavlib6.gGSGS(' air '), 'Air')

    def test_ids_of_the_catalogue(self):
        self.assertEqual(tavlib6.gIDNAME('AirMix'), 13)
        self.assertAlmostEqual(tavlib6.gGCID(13), 287.0591141165502, delta=1e-12)

    def test_bad_text_raises_with_its_code(self):
        with self.assertRaises(tavlib6.TavlibError) as caught:
            tavlib6.gHGST('N2:1;;O2:1;Ar:1', 500.0)
        self.assertEqual(caught.exception.code, 11)
        with self.assertRaises(tavlib6.TavlibError) as caught:
            tavlib6.gHGST('Foo', 500.0)
        self.assertEqual(caught.exception.code, 12)
        self.assertEqual(tavlib6.raw.tvlgHGST(None, 500.0), -1.0)
        self.assertEqual(tavlib6.GETLASTERROR(), 11)


class GasCommandTest(unittest.TestCase):
    def test_text_argument_quoted_for_the_shell(self):
        run = tvl('gCPGST', 'N2:79;O2:21', '300')
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertAlmostEqual(float(run.stdout), 1011.45243, delta=5e-5)

    def test_text_result_and_failure(self):
        self.assertEqual(tvl('gGSID', '14').stdout.strip(), 'N2:0.9876;CO2:0.0004;Ar:0.0119;H2:0.0001;')
        run = tvl('gCPGST', 'N2:', '300')
        self.assertEqual(run.returncode, 2)
        self.assertEqual(run.stderr.strip(), 'error 11: 11. Syntax error.')


if __name__ == '__main__':
    unittest.main()
