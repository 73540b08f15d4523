"""The Python module as a user meets it: values, errors, outputs, the raw functions."""
import inspect
import math
import unittest

import tavlib6


class ModuleTest(unittest.TestCase):
    def test_values_of_the_release(self):
        self.assertAlmostEqual(tavlib6.V1PT(3e6, 300.0), 0.00100215168, delta=5e-12)
        self.assertAlmostEqual(tavlib6.H1PT(3e6, 300.0), 115331.273, delta=5e-4)
        self.assertAlmostEqual(tavlib6.PST(273.15), 611.2126774443, delta=5e-10)

    def test_failure_raises_with_code_and_text(self):
        with self.assertRaises(tavlib6.TavlibError) as caught:
            tavlib6.PST(200.0)
        self.assertEqual(caught.exception.code, 2)
        self.assertEqual(caught.exception.text, '2. Parameters are out of range.')

    def test_raw_functions_return_the_failure_value(self):
        self.assertEqual(tavlib6.raw.tvlPST(200.0), -1.0)
        self.assertEqual(tavlib6.GETLASTERROR(), 2)
        self.assertEqual(tavlib6.GETLASTERRORDESCRIPTIONW(), '2. Parameters are out of range.')

    def test_output_cells_come_back_as_a_tuple(self):
        h, s = tavlib6.H1PT(5e6, 400.0), tavlib6.S1PT(5e6, 400.0)
        p, T = tavlib6.PT1HS(h, s)
        self.assertAlmostEqual(p, 5e6, delta=1e-2)
        self.assertAlmostEqual(T, 400.0, delta=1e-8)
        outputs = tavlib6.VUSHCVWDERPT1PT(5e6, 400.0)
        self.assertEqual(len(outputs), 14)
        self.assertAlmostEqual(outputs[3], h, delta=1e-6)

    def test_settings_round_trip(self):
        try:
            self.assertEqual(tavlib6.SETTOLERANCEMODE(0), 0)
            self.assertAlmostEqual(tavlib6.T1PH(3e6, 500e3), 391.798509, delta=5e-7)
        finally:
            tavlib6.SETTOLERANCEMODE(1)
        self.assertEqual(tavlib6.GETTOLERANCEMODE(), 1)

    def test_wrong_number_of_arguments(self):
        with self.assertRaises(TypeError):
            tavlib6.H1PT(1e5)

    def test_arguments_by_name_and_by_position(self):
        value = tavlib6.HPT(1e5, 300.0)
        self.assertEqual(tavlib6.HPT(p=1e5, T=300.0), value)
        self.assertEqual(tavlib6.HPT(1e5, T=300.0), value)
        self.assertEqual(tavlib6.PT1HS(h=tavlib6.H1PT(5e6, 400.0), s=tavlib6.S1PT(5e6, 400.0))[1],
                         tavlib6.PT1HS(tavlib6.H1PT(5e6, 400.0), tavlib6.S1PT(5e6, 400.0))[1])
        self.assertEqual(tavlib6.gCPGST(gs='N2:79;O2:21', T=300.0), tavlib6.gCPGST('N2:79;O2:21', 300.0))
        for bad in ({'p': 1e5, 'T': 300.0, 'h': 1.0}, {'p': 1e5}, {'T': 300.0}):
            with self.assertRaises(TypeError):
                tavlib6.HPT(**bad)
        with self.assertRaises(TypeError):
            tavlib6.HPT(1e5, 300.0, p=1e5)

    def test_signatures_and_docstrings_come_from_the_reference(self):
        self.assertEqual(str(inspect.signature(tavlib6.HPT)), "(p, T, *, errors='raise')")
        self.assertEqual(str(inspect.signature(tavlib6.GETLASTERROR)), '()')
        doc = tavlib6.HPT.__doc__
        for part in ('p pressure [Pa]', 'T temperature [K]', 'specific enthalpy [J/kg]', 'Range: ', '    2  '):
            self.assertIn(part, doc)
        self.assertIn('Returns the tuple (p, T)', tavlib6.PT1HS.__doc__)
        self.assertRegex(tavlib6.__version__, r'^\d+\.\d+\.\d+')

    def test_nan_argument_is_code_one(self):
        with self.assertRaises(tavlib6.TavlibError) as caught:
            tavlib6.PST(math.nan)
        self.assertEqual(caught.exception.code, 1)


if __name__ == '__main__':
    unittest.main()
