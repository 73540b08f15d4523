#!/usr/bin/env python3
"""Enthalpy at a million (p,T) points from Python: one array call against a loop of scalar calls.

    PYTHONPATH=python python3 bench/python_arrays.py [POINTS]

The points cover compressed water, superheated steam and the supercritical area
(p 0.01 to 50 MPa, T 280 to 1000 K). The scalar loop is timed on a tenth of the points and
scaled. Needs numpy and the built libtavlib6x.
"""
import sys
import time

import numpy as np

import tavlib6


def main():
    count = int(sys.argv[1]) if len(sys.argv) > 1 else 1_000_000
    generator = np.random.default_rng(6)
    p = 10.0 ** generator.uniform(4.0, np.log10(5e7), count)
    T = generator.uniform(280.0, 1000.0, count)

    start = time.perf_counter()
    h = tavlib6.HPT(p, T, errors='nan')
    array_seconds = time.perf_counter() - start

    sample = count // 10
    p_list, T_list = p[:sample].tolist(), T[:sample].tolist()
    start = time.perf_counter()
    looped = [tavlib6.HPT(pk, Tk, errors='nan') for pk, Tk in zip(p_list, T_list)]
    loop_seconds = (time.perf_counter() - start) * count / sample

    start = time.perf_counter()
    looped_numpy = np.array([tavlib6.HPT(pk, Tk, errors='nan') for pk, Tk in zip(p[:sample], T[:sample])])
    loop_numpy_seconds = (time.perf_counter() - start) * count / sample

    assert np.array_equal(np.asarray(looped), h[:sample], equal_nan=True)
    assert np.array_equal(looped_numpy, h[:sample], equal_nan=True)
    print('%d points, %d failed (nan)' % (count, int(np.isnan(h).sum())))
    print('array call:                  %8.3f s  %7.1f ns/point' % (array_seconds, array_seconds / count * 1e9))
    print('loop over Python floats:     %8.3f s  %7.1f ns/point  (%.1fx the array call)'
          % (loop_seconds, loop_seconds / count * 1e9, loop_seconds / array_seconds))
    print('loop over the numpy arrays:  %8.3f s  %7.1f ns/point  (%.1fx the array call)'
          % (loop_numpy_seconds, loop_numpy_seconds / count * 1e9, loop_numpy_seconds / array_seconds))


if __name__ == '__main__':
    main()
