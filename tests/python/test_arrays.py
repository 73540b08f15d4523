"""Array arguments: broadcasting, the error policies, outputs, and agreement with plain calls
for every export that takes numbers. Skipped where numpy is not importable."""
import os
import shutil
import subprocess
import sys
import unittest

import tavlib6

try:
    import numpy as np
except ImportError:
    np = None
try:
    import dask.array
except ImportError:
    dask = None

needs_arrays = unittest.skipUnless(np is not None and tavlib6.arrays_available, 'needs numpy and libtavlib6x')

# A point for every argument name of the exports, inside the usual ranges of their families.
POINT = {'p': 2e6, 'T': 600.0, 'h': 2.9e6, 's': 6500.0, 'x': 0.4, 'r': 500.0, 'v': 0.1, 'u': 2.6e6,
         'p2': 1e5, 'eff': 0.85, 'T2': 400.0, 'lambda': 5.89e-7, 'rho': 500.0, 'd': 500.0, 'id': 3,
         'gasId': 3, 'w': 1.0}
# Families whose calls change the library's state or report on it; they are not property functions.
STATEFUL = ('Error reporting', 'Settings and service', 'About box and help')
CHANGES_THE_CATALOGUE = ('gNEW', 'gDELETE', 'gADD', 'gSET')


def number_of(name):
    return POINT.get(name, POINT.get(name.rstrip('0123456789'), 1.0))


@needs_arrays
class ArrayTest(unittest.TestCase):
    def test_broadcasting(self):
        p = np.array([[1e5], [1e6]])
        T = np.array([400.0, 500.0, 600.0])
        h = tavlib6.HPT(p, T)
        self.assertEqual(h.shape, (2, 3))
        for i in range(2):
            for j in range(3):
                self.assertEqual(h[i, j], tavlib6.HPT(float(p[i, 0]), float(T[j])))
        self.assertEqual(tavlib6.HPT([1e5, 1e6], 500.0).shape, (2,))
        self.assertEqual(tavlib6.HPT(np.full((2, 0), 1e5), 500.0).shape, (2, 0))
        with self.assertRaises(ValueError):
            tavlib6.HPT(np.ones(2), np.ones(3))

    def test_errors_raise_names_the_first_failing_element(self):
        with self.assertRaises(tavlib6.TavlibError) as caught:
            tavlib6.PST(np.array([[300.0, 200.0], [100.0, 400.0]]))
        error = caught.exception
        self.assertEqual((error.code, error.text), (2, '2. Parameters are out of range.'))
        self.assertEqual(tuple(int(k) for k in error.index), (0, 1))
        self.assertEqual(error.codes.tolist(), [[0, 2], [2, 0]])

    def test_errors_nan_puts_nan_where_the_library_failed(self):
        T = np.array([300.0, 200.0, np.nan, np.inf, 647.0, 700.0])
        p = tavlib6.PST(T, errors='nan')
        for Tk, pk in zip(T.tolist(), p.tolist()):
            try:
                expected = tavlib6.PST(Tk)
            except tavlib6.TavlibError:
                self.assertTrue(np.isnan(pk), Tk)
            else:
                self.assertEqual(pk, expected)
        self.assertEqual(np.isnan(p).tolist(), [False, True, True, True, False, True])

    def test_error_policy_on_scalars_and_bad_policy(self):
        self.assertTrue(np.isnan(tavlib6.PST(200.0, errors='nan')))
        self.assertEqual(tavlib6.PST(300.0, errors='nan'), tavlib6.PST(300.0))
        with self.assertRaises(ValueError):
            tavlib6.PST(np.array([300.0]), errors='ignore')

    def test_outputs_come_back_as_arrays(self):
        h = np.array([5e5, 6e5, 1e9])
        p, T = tavlib6.PT1HS(h, 1400.0, errors='nan')
        self.assertEqual((p.shape, T.shape), ((3,), (3,)))
        self.assertEqual((p[0], T[0]), tavlib6.PT1HS(5e5, 1400.0))
        outputs = tavlib6.VUSHCVWDERPTPT(np.array([1e5, 1e6]), 500.0)
        self.assertEqual(len(outputs), 14)
        self.assertEqual(outputs[3][1], tavlib6.HPT(1e6, 500.0))

    def test_integer_results_texts_and_integer_arguments(self):
        phase = tavlib6.PHASESTATEPT(np.array([1e5, 1e5]), np.array([300.0, 500.0]))
        self.assertEqual(phase.dtype, np.int32)
        self.assertEqual(phase.tolist(), [tavlib6.PHASESTATEPT(1e5, 300.0), tavlib6.PHASESTATEPT(1e5, 500.0)])
        cp = tavlib6.gCPGST('N2:79;O2:21', np.array([300.0, 1000.0]))
        self.assertEqual(cp.tolist(), [tavlib6.gCPGST('N2:79;O2:21', 300.0), tavlib6.gCPGST('N2:79;O2:21', 1000.0)])
        ids = tavlib6.gCPIDT(np.array([1, 2, 2.5]), 300.0, errors='nan')
        self.assertEqual(ids[:2].tolist(), [tavlib6.gCPIDT(1, 300.0), tavlib6.gCPIDT(2, 300.0)])
        self.assertTrue(np.isnan(ids[2]))

    def test_numpy_scalars_are_plain_calls(self):
        value = tavlib6.HPT(np.float64(1e5), np.int64(500))
        self.assertIsInstance(value, float)
        self.assertEqual(value, tavlib6.HPT(1e5, 500.0))

    def test_settings_of_the_library_hold_for_arrays(self):
        self.assertEqual(tavlib6.SETCHECKRANGEMODE(0), 0)
        try:
            unchecked = tavlib6.H1PT(np.array([1e9]), 250.0, errors='nan')
            self.assertEqual(unchecked[0], tavlib6.H1PT(1e9, 250.0))
        finally:
            tavlib6.SETCHECKRANGEMODE(1)

    def test_threads_give_the_values_of_one_thread(self):
        p = np.geomspace(1e3, 1e8, 40000)
        T = np.linspace(275.0, 2200.0, 40000)
        try:
            self.assertEqual(tavlib6.set_threads(1), 1)
            one = tavlib6.VPT(p, T, errors='nan')
            self.assertEqual(tavlib6.set_threads(3), 3)
            three = tavlib6.VPT(p, T, errors='nan')
        finally:
            tavlib6.set_threads(0)
        self.assertTrue(np.isnan(one).any())
        np.testing.assert_array_equal(three, one)

    def test_every_export_of_numbers_agrees_with_plain_calls(self):
        checked = 0
        for name, result, params, family in tavlib6._exports.EXPORTS:
            kinds = [kind for kind, _ in params if kind != 'out']
            if family in STATEFUL or name.startswith(CHANGES_THE_CATALOGUE) or result not in ('double', 'int32') or not kinds:
                continue
            if any(kind not in ('double', 'int32', 'text') for kind in kinds) or kinds.count('text') == len(kinds):
                continue
            args = ['AirMix' if kind == 'text' else int(number_of(arg)) if kind == 'int32' else float(number_of(arg))
                    for kind, arg in params if kind != 'out']
            function = getattr(tavlib6, name)
            plain = function(*args, errors='nan')
            batch = function(*[a if isinstance(a, str) else np.array([a, a]) for a in args], errors='nan')
            plain = plain if isinstance(plain, tuple) else (plain,)
            batch = batch if isinstance(batch, tuple) else (batch,)
            for one, many in zip(plain, batch):
                self.assertEqual(np.asarray(many).shape, (2,), name)
                np.testing.assert_array_equal(np.asarray(many, dtype=float), [one, one], err_msg=name)
            checked += 1
        self.assertGreater(checked, 250)


@unittest.skipUnless(dask is not None and tavlib6.arrays_available, 'needs python3-dask (apt-get install python3-dask)')
class DaskTest(unittest.TestCase):
    def test_chunked_array_gives_the_bits_of_one_numpy_call(self):
        p = np.geomspace(1e3, 1e8, 1000).reshape(40, 25)
        T = np.linspace(280.0, 1000.0, 25)
        lazy = tavlib6.HPT(dask.array.from_array(p, chunks=(7, 10)), T)
        self.assertIsInstance(lazy, dask.array.Array)
        np.testing.assert_array_equal(lazy.compute(scheduler='threads'), tavlib6.HPT(p, T))
        T = np.linspace(300.0, 520.0, 9)
        h, s = tavlib6.HPT(5e6, T), tavlib6.SPT(5e6, T)
        _, T1 = tavlib6.PT1HS(dask.array.from_array(h, chunks=4), s)
        np.testing.assert_array_equal(T1.compute(), tavlib6.PT1HS(h, s)[1])
        with self.assertRaises(tavlib6.TavlibError):
            tavlib6.PST(dask.array.from_array(np.array([300.0, 200.0]), chunks=1)).compute()


class WithoutNumpyTest(unittest.TestCase):
    def test_scalars_and_lists_work_without_numpy(self):
        program = ('import sys; sys.modules["numpy"] = None\n'
                   'import tavlib6\n'
                   'assert not tavlib6.arrays_available\n'
                   'print(repr(tavlib6.HPT(1e5, 500.0)), tavlib6.PST(200.0, errors="nan"))\n'
                   'print(tavlib6.Water(p=1e5, T=500.0).h)\n'
                   'print(tavlib6.HPT([1e5, 1e5], (500.0, 500.0)) == 2 * [tavlib6.HPT(1e5, T=500.0)])\n')
        run = subprocess.run([sys.executable, '-c', program], capture_output=True, text=True, timeout=60,
                             env=dict(os.environ))
        self.assertEqual(run.returncode, 0, run.stderr)
        expected = repr(tavlib6.HPT(1e5, 500.0))
        self.assertEqual(run.stdout.split(), [expected, 'nan', expected, 'True'])


@needs_arrays
@unittest.skipUnless(shutil.which('nm'), 'needs nm')
class BatchLibraryTest(unittest.TestCase):
    def test_batch_library_exports_only_its_own_functions(self):
        path = os.path.join(os.path.dirname(tavlib6.library_path), 'libtavlib6x.so')
        if not os.path.exists(path):
            self.skipTest('no libtavlib6x.so beside the library')
        out = subprocess.run(['nm', '-D', '--defined-only', path], capture_output=True, text=True, check=True).stdout
        self.assertEqual({line.split()[-1] for line in out.splitlines() if line.strip()},
                         {'tvlxEVALUATE', 'tvlxCANEVALUATE', 'tvlxSETTHREADS', 'tvlxSTATE', 'tvlxSTATES',
                          'tvlxSTATENAME', 'tvlxSIMD'})


if __name__ == '__main__':
    unittest.main()
