"""tavlib6 from Python: water and steam by IAPWS-IF97, and ideal gases.

Every export of the library is a function of this module under its name without the "tvl"
prefix: ``tavlib6.HPT(5e6, 700.0)``, ``tavlib6.TSP(1e5)``, ``tavlib6.gCPGST("N2:79;O2:21", 300.0)``.
Values are SI (Pa, K, J/kg, J/(kg K), m3/kg). A call that fails raises ``TavlibError`` with the
library's code and text. Exports with output cells return their outputs as a tuple, in the order
of the signature (``p, T = tavlib6.PT1HS(h, s)``). ``tavlib6.raw`` holds the plain ctypes
functions, which return the library's failure values (-1.0, -1, None) without raising.

Arrays: when numpy is importable, every function whose arguments are numbers also takes arrays
(or lists, or numpy scalars) for them, broadcast against each other, and returns arrays of the
broadcast shape: ``tavlib6.HPT(np.array([1e5, 1e6, 1e7]), 700.0)``. The batch library
libtavlib6x beside libtavlib6 evaluates the whole array in one call, element by element with
the frame of a plain call; a large array of a water function is shared among threads, one
per processor (``tavlib6.set_threads(n)`` changes that, 1 keeps it on the calling thread), with
the same values as the calls one by one. What a failing element does is chosen by the keyword
``errors``:

* ``errors="raise"`` (the default): raise ``TavlibError`` for the first failing element; its
  ``index`` is that element's index and ``codes`` the array of every element's error code.
* ``errors="nan"``: return NaN for each failing element (and in each output), values elsewhere.

The keyword works on scalar calls too: ``tavlib6.PST(200.0, errors="nan")`` is nan. Integer
results (region, phase) come back as int32 arrays, or as floats where ``errors="nan"`` put NaN.
Without numpy everything works on scalars as before. ``tavlib6.Water(p=..., T=...)`` is a small
state object whose properties are calculated when read (see ``Water``).

The library is found through the environment variable TAVLIB6_LIBRARY, then in the build tree
beside this folder (build/libtavlib6.so), then by the system's loader.
"""
import ctypes
import os

from ._exports import EXPORTS

__all__ = ['TavlibError', 'raw', 'library_path', 'arrays_available', 'set_threads', 'Water'] + [name for name, *_ in EXPORTS]

_CTYPE = {
    'double': ctypes.c_double, 'int32': ctypes.c_int32, 'text': ctypes.c_char_p,
    'wtext': ctypes.POINTER(ctypes.c_uint16), 'out': ctypes.POINTER(ctypes.c_double),
    'window': ctypes.c_void_p, 'word': ctypes.c_ssize_t,
}
_SCALARS = (float, int, str, bytes, type(None))
# The functions that report errors and therefore do not clear or raise them.
_REPORTING = {'GETLASTERROR', 'SETLASTERROR', 'GETLASTERRORDESCRIPTION', 'GETLASTERRORDESCRIPTIONW'}


class TavlibError(Exception):
    """A call of the library failed; ``code`` is its last error, ``text`` the library's text for it.

    From an array call, ``index`` is the index of the first failing element and ``codes`` the
    error code of every element (0 where it succeeded); both are None for a scalar call.
    """

    def __init__(self, code, text, index=None, codes=None):
        where = '' if index is None else ' at index %s' % (tuple(int(k) for k in index),)
        super().__init__('error %d%s: %s' % (code, where, text))
        self.code = code
        self.text = text
        self.index = index
        self.codes = codes


def _find_library():
    explicit = os.environ.get('TAVLIB6_LIBRARY')
    if explicit:
        return explicit
    here = os.path.dirname(os.path.abspath(__file__))
    for candidate in (os.path.join(here, '..', '..', 'build', 'libtavlib6.so'),
                      os.path.join(here, '..', '..', 'build', 'tavlib6.dll')):
        if os.path.exists(candidate):
            return os.path.normpath(candidate)
    import ctypes.util
    return ctypes.util.find_library('tavlib6') or 'libtavlib6.so'


library_path = _find_library()
_lib = ctypes.CDLL(library_path)


class _Raw:
    """The exports as plain ctypes functions, under their full names (raw.tvlHPT)."""


raw = _Raw()


def _wide_to_str(pointer):
    if not pointer:
        return None
    chars = []
    k = 0
    while pointer[k] != 0:
        chars.append(chr(pointer[k]))
        k += 1
    return ''.join(chars)


def _error_text(code):
    """The library's text for a code, read by setting that code as the last error."""
    _lib.tvlSETLASTERROR(code)
    return _lib.tvlGETLASTERRORDESCRIPTION().decode('ascii')


def _array_error(code, index, codes):
    return TavlibError(code, _error_text(code), index, codes)


try:
    from . import _arrays
    _batch = _arrays.load_batch_library(library_path)
except ImportError:
    _arrays = _batch = None
# True when array arguments are taken: numpy is importable and libtavlib6x was found.
arrays_available = _batch is not None


def set_threads(threads):
    """How many threads an array call of a water function may use: 1 keeps it on the calling
    thread, 0 (the start value) one per processor, up to 16. Returns the value now in force,
    or None when arrays are not available."""
    return _batch.tvlxSETTHREADS(int(threads)) if _batch is not None else None


def _declare(name, result, params):
    function = getattr(_lib, 'tvl' + name)
    function.restype = _CTYPE[result]
    function.argtypes = [_CTYPE[kind] for kind, _ in params]
    setattr(raw, 'tvl' + name, function)
    inputs = [arg for kind, arg in params if kind != 'out']
    outputs = [arg for kind, arg in params if kind == 'out']
    batchable = (arrays_available and result in ('double', 'int32') and name not in _REPORTING
                 and _batch.tvlxCANEVALUATE(name.encode('ascii')) == 1)
    evaluator = _arrays.Evaluator(_batch, name, result, params, _array_error) if batchable else None

    def call(*args, errors='raise'):
        if len(args) != len(inputs):
            raise TypeError('%s(%s) takes %d arguments, %d given' % (name, ', '.join(inputs), len(inputs), len(args)))
        if errors not in ('raise', 'nan'):
            raise ValueError('errors must be "raise" or "nan", not %r' % (errors,))
        if evaluator is not None and any(type(arg) not in _SCALARS for arg in args):
            if _arrays.array_arguments(args) is not None:
                return evaluator.evaluate(args, errors)
            args = _arrays.scalar_arguments(args)
        cells = [ctypes.c_double(0.0) for _ in outputs]
        values, given = [], iter(args)
        cell_iter = iter(cells)
        for kind, _ in params:
            if kind == 'out':
                values.append(ctypes.byref(next(cell_iter)))
            elif kind == 'text':
                value = next(given)
                values.append(value.encode('latin-1') if isinstance(value, str) else value)
            else:
                values.append(next(given))
        value = function(*values)
        if name not in _REPORTING:
            code = _lib.tvlGETLASTERROR()
            if code != 0:
                if errors == 'nan' and result in ('double', 'int32'):
                    return tuple(float('nan') for _ in outputs) if outputs else float('nan')
                raise TavlibError(code, _lib.tvlGETLASTERRORDESCRIPTION().decode('ascii'))
        if result == 'text':
            value = value.decode('latin-1') if value is not None else None
        elif result == 'wtext':
            value = _wide_to_str(value)
        if outputs:
            return tuple(cell.value for cell in cells)
        return value

    call.__name__ = name
    call.__doc__ = '%s(%s, errors="raise") -> %s' % (name, ', '.join(inputs), ', '.join(outputs) if outputs else result)
    return call


_lib.tvlGETLASTERROR.restype = ctypes.c_int32
_lib.tvlGETLASTERROR.argtypes = []
_lib.tvlGETLASTERRORDESCRIPTION.restype = ctypes.c_char_p
_lib.tvlGETLASTERRORDESCRIPTION.argtypes = []
_lib.tvlSETLASTERROR.restype = ctypes.c_int32
_lib.tvlSETLASTERROR.argtypes = [ctypes.c_int32]

for _name, _result, _params, _family in EXPORTS:
    globals()[_name] = _declare(_name, _result, _params)

from .water import Water  # noqa: E402  (needs the functions above)
