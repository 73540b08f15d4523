#!/usr/bin/env python3
"""Enthalpy at a million (p,T) points from Python: one array call against a loop of scalar calls.

    PYTHONPATH=python python3 bench/python_arrays.py [POINTS]

The points cover compressed water, superheated steam and the supercritical area
(p 0.01 to 50 MPa, T 280 to 1000 K). The scalar loops are timed on a tenth of the points and
scaled; each figure is the best of three runs, as timeit reports. The array call uses the
threads that libtavlib6x takes by default (one per processor); this script reads
TAVLIB6X_THREADS from the environment and passes it to tavlib6.set_threads (1: one thread). Needs numpy and the built libtavlib6x.
"""
import os
import sys
import time

import ctypes

import numpy as np

import tavlib6


def best_of(runs, work):
    """The shortest of `runs` timings of work() and its last result."""
    best, result = None, None
    for _ in range(runs):
        start = time.perf_counter()
        result = work()
        seconds = time.perf_counter() - start
        best = seconds if best is None else min(best, seconds)
    return best, result


def main():
    count = int(sys.argv[1]) if len(sys.argv) > 1 else 1_000_000
    generator = np.random.default_rng(6)
    p = 10.0 ** generator.uniform(4.0, np.log10(5e7), count)
    T = generator.uniform(280.0, 1000.0, count)

    if os.environ.get('TAVLIB6X_THREADS'):
        tavlib6.set_threads(int(os.environ['TAVLIB6X_THREADS']))

    # The same batch call made directly, as a C host makes it: the arrays are ready, nothing is
    # converted or checked after it. The difference is what the module itself costs.
    values, codes = np.empty(count), np.empty(count, dtype=np.int32)
    double_p = ctypes.POINTER(ctypes.c_double)
    columns = (double_p * 2)(p.ctypes.data_as(double_p), T.ctypes.data_as(double_p))
    strides = (ctypes.c_int64 * 2)(1, 1)
    def direct():
        return tavlib6._batch.tvlxEVALUATE(b'HPT', count, columns, strides, None, values.ctypes.data_as(double_p),
                                           None, codes.ctypes.data_as(ctypes.POINTER(ctypes.c_int32)))

    # Alternately, so that both meet the same load on a shared machine.
    array_seconds = direct_seconds = float('inf')
    for _ in range(5):
        seconds, h = best_of(1, lambda: tavlib6.HPT(p, T, errors='nan'))
        array_seconds = min(array_seconds, seconds)
        direct_seconds = min(direct_seconds, best_of(1, direct)[0])
    assert np.array_equal(np.where(codes != 0, np.nan, values), h, equal_nan=True)

    sample = count // 10
    p_list, T_list = p[:sample].tolist(), T[:sample].tolist()
    loop_seconds, looped = best_of(3, lambda: [tavlib6.HPT(pk, Tk, errors='nan') for pk, Tk in zip(p_list, T_list)])
    loop_seconds *= count / sample

    loop_numpy_seconds, looped_numpy = best_of(
        3, lambda: np.array([tavlib6.HPT(pk, Tk, errors='nan') for pk, Tk in zip(p[:sample], T[:sample])]))
    loop_numpy_seconds *= count / sample

    assert np.array_equal(np.asarray(looped), h[:sample], equal_nan=True)
    assert np.array_equal(looped_numpy, h[:sample], equal_nan=True)
    print('%d points, %d failed (nan)' % (count, int(np.isnan(h).sum())))
    print('array call:                  %8.3f s  %7.1f ns/point' % (array_seconds, array_seconds / count * 1e9))
    print('the C batch call alone:      %8.3f s  %7.1f ns/point  (the array call costs %.1f %% more)'
          % (direct_seconds, direct_seconds / count * 1e9, (array_seconds / direct_seconds - 1) * 100))
    print('loop over Python floats:     %8.3f s  %7.1f ns/point  (%.1fx the array call)'
          % (loop_seconds, loop_seconds / count * 1e9, loop_seconds / array_seconds))
    print('loop over the numpy arrays:  %8.3f s  %7.1f ns/point  (%.1fx the array call)'
          % (loop_numpy_seconds, loop_numpy_seconds / count * 1e9, loop_numpy_seconds / array_seconds))


if __name__ == '__main__':
    main()
