"""Array evaluation of the exports through libtavlib6x, used when numpy is importable.

Every input is broadcast against the others; the batch library then calls the export once per
element, each call with its own frame (large batches of water functions on several threads),
and hands back the values and the error code of every element. No Python code runs per element.
"""
import ctypes
import functools

import numpy as np

_DOUBLE_P = ctypes.POINTER(ctypes.c_double)
_NUMERIC = ('double', 'int32')
ERROR_POLICIES = ('raise', 'nan')


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


def is_dask(arg):
    """True for a dask array, recognised without importing dask."""
    return type(arg).__module__.startswith('dask.') and hasattr(arg, 'map_blocks')


def evaluate_dask(evaluator, args, errors):
    """The export over dask arrays: one batch call per block, lazily, as dask.array.map_blocks
    runs it (on a cluster too); each block gives the bits of the numpy call on its elements."""
    import dask.array as da

    positions = [k for k, arg in enumerate(args) if not np.isscalar(arg) and not isinstance(arg, (str, bytes))]
    arrays = da.broadcast_arrays(*[da.asarray(args[k]) for k in positions])
    whole = evaluator.result == 'int32' and errors == 'raise' and not evaluator.outputs
    dtype = np.int32 if whole else np.float64

    def block(*blocks, cell=None):
        given = list(args)
        for k, b in zip(positions, blocks):
            given[k] = b
        result = evaluator.evaluate(given, errors)
        return np.asarray(result if cell is None else result[cell], dtype=dtype)

    if evaluator.outputs:
        return tuple(da.map_blocks(functools.partial(block, cell=j), *arrays, dtype=dtype)
                     for j in range(evaluator.outputs))
    return da.map_blocks(block, *arrays, dtype=dtype)
