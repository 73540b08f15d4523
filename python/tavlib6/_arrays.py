"""Array evaluation of the exports through libtavlib6x, used when numpy is importable.

Every input is broadcast against the others; the batch library then calls the export once per
element, each call with its own frame (large batches of water functions on several threads),
and hands back the values and the error code of every element. No Python code runs per element.
"""
import ctypes
import ctypes.util
import os

import numpy as np

_DOUBLE_P = ctypes.POINTER(ctypes.c_double)
_NUMERIC = ('double', 'int32')
ERROR_POLICIES = ('raise', 'nan')


def load_batch_library(library_path):
    """libtavlib6x beside the main library, or as TAVLIB6X_LIBRARY names it; None without it."""
    explicit = os.environ.get('TAVLIB6X_LIBRARY')
    folder = os.path.dirname(library_path)
    stem, extension = os.path.splitext(os.path.basename(library_path))
    if explicit:
        candidates = [explicit]
    elif folder:
        candidates = [os.path.join(folder, stem + 'x' + extension)]
    else:
        candidates = [ctypes.util.find_library('tavlib6x') or 'libtavlib6x.so']
    for candidate in candidates:
        try:
            library = ctypes.CDLL(candidate)
        except OSError:
            continue
        library.tvlxEVALUATE.restype = ctypes.c_int64
        library.tvlxEVALUATE.argtypes = [ctypes.c_char_p, ctypes.c_int64, ctypes.POINTER(_DOUBLE_P),
                                         ctypes.POINTER(ctypes.c_int64), ctypes.POINTER(ctypes.c_char_p), _DOUBLE_P,
                                         ctypes.POINTER(_DOUBLE_P), ctypes.POINTER(ctypes.c_int32)]
        library.tvlxCANEVALUATE.restype = ctypes.c_int32
        library.tvlxCANEVALUATE.argtypes = [ctypes.c_char_p]
        library.tvlxSETTHREADS.restype = ctypes.c_int32
        library.tvlxSETTHREADS.argtypes = [ctypes.c_int32]
        return library
    return None


def _pointer(array):
    return array.ctypes.data_as(_DOUBLE_P)


class Evaluator:
    """Evaluates one export over arrays: evaluate(args, errors) with the module's calling rules."""

    def __init__(self, batch, name, result, params, raise_error):
        self.batch, self.name, self.result = batch, name.encode('ascii'), result
        self.params = [kind for kind, _ in params]
        self.outputs = sum(1 for kind in self.params if kind == 'out')
        self.raise_error = raise_error

    def evaluate(self, args, errors):
        numbers, texts = [], []
        given = iter(args)
        for kind in self.params:
            if kind in _NUMERIC:
                numbers.append(np.asarray(next(given), dtype=np.float64))
            elif kind == 'text':
                value = next(given)
                texts.append(value.encode('latin-1') if isinstance(value, str) else value)
            elif kind != 'out':
                raise TypeError('%s takes no arrays' % self.name.decode())
        shape = np.broadcast_shapes(*(a.shape for a in numbers)) if numbers else ()
        count = int(np.prod(shape, dtype=np.int64))

        # A scalar input is read with stride 0; an array is laid out once in the common shape.
        columns, strides = [], []
        for array in numbers:
            if array.ndim == 0:
                columns.append(np.ascontiguousarray(array).reshape(1))
                strides.append(0)
            else:
                columns.append(np.ascontiguousarray(np.broadcast_to(array, shape)).reshape(-1))
                strides.append(1)
        values = np.empty(count, dtype=np.float64)
        codes = np.zeros(count, dtype=np.int32)
        cells = [np.empty(count, dtype=np.float64) for _ in range(self.outputs)]

        failed = self.batch.tvlxEVALUATE(
            self.name, count,
            (_DOUBLE_P * max(len(columns), 1))(*[_pointer(c) for c in columns]),
            (ctypes.c_int64 * max(len(strides), 1))(*strides),
            (ctypes.c_char_p * max(len(texts), 1))(*texts),
            _pointer(values),
            (_DOUBLE_P * max(len(cells), 1))(*[_pointer(c) for c in cells]),
            codes.ctypes.data_as(ctypes.POINTER(ctypes.c_int32)))
        if failed < 0:
            raise TypeError('%s cannot be evaluated over arrays' % self.name.decode())
        if failed > 0:
            bad = codes != 0
            if errors == 'raise':
                first = int(np.argmax(bad))
                index = np.unravel_index(first, shape) if shape else ()
                raise self.raise_error(int(codes[first]), index, codes.reshape(shape))
            values[bad] = np.nan
            for cell in cells:
                cell[bad] = np.nan
        if self.outputs:
            return tuple(_shaped(cell, shape) for cell in cells)
        if self.result == 'int32' and failed == 0:
            values = values.astype(np.int32)
        return _shaped(values, shape)


def _shaped(array, shape):
    array = array.reshape(shape)
    return array[()] if shape == () else array


def array_arguments(args, scalars=(float, int, str, bytes, type(None))):
    """None when every argument is a scalar, else the arguments to evaluate over arrays.

    Numpy scalars (np.float64(3.0), np.int32(2)) count as scalars and come back as Python
    numbers through ``scalar_arguments``, so a loop over the elements of an array stays a loop
    of plain calls.
    """
    for arg in args:
        if type(arg) not in scalars and not isinstance(arg, np.generic):
            return args
    return None


def scalar_arguments(args):
    return tuple(arg.item() if isinstance(arg, np.generic) else arg for arg in args)
