"""tavlib6 from Python: water and steam by IAPWS-IF97, and ideal gases.

    import tavlib6
    tavlib6.HPT(5e6, 700.0)                  # enthalpy by (p, T), J/kg
    tavlib6.HPT(p=5e6, T=700.0)              # the same by the names of the arguments
    steam = tavlib6.Water(p=5e6, T=700.0)    # a state: steam.h, steam.s, steam.rho, steam.x, ...

Every export of the library is a function of this module under its name without the "tvl"
prefix: ``tavlib6.HPT``, ``tavlib6.TSP``, ``tavlib6.gCPGST("N2:79;O2:21", 300.0)``. Arguments
go by position or by the names of the library's signatures; ``help(tavlib6.HPT)`` gives the
units, range and error codes of each. Values are SI (Pa, K, J/kg, J/(kg K), m3/kg). A call that
fails raises ``TavlibError`` with the library's code and text. Exports with output cells
return their outputs as a tuple (``p, T = tavlib6.PT1HS(h, s)``). ``tavlib6.raw`` holds the
plain ctypes functions, which return the library's failure values (-1.0, -1, None).

``Water`` is an immutable state fixed by any pair of (p, T), (p, h), (p, s), (h, s), (T, x),
(p, x) with every property of it; see ``help(tavlib6.Water)``.

Arrays: with numpy, every function whose arguments are numbers also takes arrays, lists or
numpy scalars for them, broadcast against each other, and returns arrays; dask arrays give
lazy dask arrays, evaluated block by block. Without numpy, lists and tuples give lists. The
batch library libtavlib6x evaluates a whole array in one call, element by element with the
frame of a plain call; large arrays of water functions are shared among threads
(``tavlib6.set_threads(n)``; 1 keeps them on the calling thread), with the same values. What
a failing element does is chosen by the keyword ``errors``:

* ``errors="raise"`` (the default): raise ``TavlibError`` for the first failing element; its
  ``index`` is that element's index and ``codes`` the array of every element's error code.
* ``errors="nan"``: return NaN for each failing element (and in each output), values elsewhere.

Integer results (region, phase) come back as int32 arrays, or as floats where NaN was put.

The library is looked for where TAVLIB6_LIBRARY names it, in this package's folder, in the
library folder of the prefix it was installed under, in the build tree of a source checkout
(build/ beside python/) and by the system's loader; ``tavlib6.library_path`` tells which.
"""
import ctypes
import inspect

from . import _library
from ._docs import DOCS
from ._exports import EXPORTS
from ._version import __version__

__all__ = ['TavlibError', 'raw', 'library_path', 'arrays_available', 'set_threads', 'Water',
           '__version__'] + [name for name, *_ in EXPORTS]

_CTYPE = {
    'double': ctypes.c_double, 'int32': ctypes.c_int32, 'text': ctypes.c_char_p,
    'wtext': ctypes.POINTER(ctypes.c_uint16), 'out': ctypes.POINTER(ctypes.c_double),
    'window': ctypes.c_void_p, 'word': ctypes.c_ssize_t,
}
_SCALARS = (float, int, str, bytes, type(None))
# The functions that report errors and therefore neither clear nor raise them.
_REPORTING = frozenset(name for name, _, _, family in EXPORTS if family == 'Error reporting')


class TavlibError(Exception):
    """A call of the library failed; ``code`` is its last error, ``text`` the library's text for it.

    From an array call, ``index`` is the index of the first failing element and ``codes`` the
    error code of every element (0 where it succeeded); both are None for a scalar call.
    ``what`` names what was asked for (a property of a ``Water`` state), or is None.
    """

    def __init__(self, code, text, index=None, codes=None, what=None):
        where = '' if index is None else ' at index %s' % (tuple(int(k) for k in index),)
        super().__init__('%serror %d%s: %s' % (what + ': ' if what else '', code, where, text))
        self.code = code
        self.text = text
        self.index = index
        self.codes = codes
        self.what = what


library_path, _lib = _library.load_library()
_batch = _library.load_batch_library(library_path)


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
except ImportError:
    _arrays = None
# True when array arguments are taken: numpy is importable and libtavlib6x was found.
arrays_available = _arrays is not None and _batch is not None


def set_threads(threads):
    """How many threads an array call of a water function may use: 1 keeps it on the calling
    thread, 0 (the start value) one per processor, up to 16. Returns the value now in force,
    or None when the batch library is not there."""
    return _batch.tvlxSETTHREADS(int(threads)) if _batch is not None else None


def _over_lists(function, args):
    """Without numpy: a list or tuple argument gives a list, element by element (nested lists
    nest), against the scalars and the lists of the same length among the other arguments."""
    lengths = {len(arg) for arg in args if isinstance(arg, (list, tuple))}
    if not lengths:
        return function(*args)
    if len(lengths) > 1:
        raise ValueError('lists of different lengths %s' % sorted(lengths))
    return [_over_lists(function, [arg[k] if isinstance(arg, (list, tuple)) else arg for arg in args])
            for k in range(lengths.pop())]


def _bind(name, inputs, args, named):
    """The arguments in the order of the signature, from positions and names."""
    if len(args) > len(inputs):
        raise TypeError('%s(%s) takes %d arguments, %d given' % (name, ', '.join(inputs), len(inputs), len(args)))
    values = dict(zip(inputs, args))
    for key, value in named.items():
        if key not in inputs:
            raise TypeError('%s() got an unexpected keyword argument %r; its arguments are %s'
                            % (name, key, ', '.join(inputs) or 'none'))
        if key in values:
            raise TypeError('%s() got multiple values for argument %r' % (name, key))
        values[key] = value
    missing = [arg for arg in inputs if arg not in values]
    if missing:
        raise TypeError('%s(%s) is missing %s' % (name, ', '.join(inputs), ', '.join(missing)))
    return [values[arg] for arg in inputs]


def _signature(inputs, numeric):
    parameters = [inspect.Parameter(arg, inspect.Parameter.POSITIONAL_OR_KEYWORD) for arg in inputs]
    if numeric:
        parameters.append(inspect.Parameter('errors', inspect.Parameter.KEYWORD_ONLY, default='raise'))
    return inspect.Signature(parameters)


def _declare(name, result, params):
    function = getattr(_lib, 'tvl' + name)
    function.restype = _CTYPE[result]
    function.argtypes = [_CTYPE[kind] for kind, _ in params]
    setattr(raw, 'tvl' + name, function)
    inputs = [arg for kind, arg in params if kind != 'out']
    outputs = [arg for kind, arg in params if kind == 'out']
    numeric = result in ('double', 'int32') and name not in _REPORTING
    batchable = arrays_available and numeric and _batch.tvlxCANEVALUATE(name.encode('ascii')) == 1
    evaluator = _arrays.Evaluator(_batch, name, result, params, _array_error) if batchable else None

    def plain(errors, *args):
        cells = [ctypes.c_double(0.0) for _ in outputs]
        values, given, cell_iter = [], iter(args), iter(cells)
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
                if errors == 'nan' and numeric:
                    return tuple(float('nan') for _ in outputs) if outputs else float('nan')
                raise TavlibError(code, _lib.tvlGETLASTERRORDESCRIPTION().decode('ascii'))
        if result == 'text':
            return value.decode('latin-1') if value is not None else None
        if result == 'wtext':
            return _wide_to_str(value)
        return tuple(cell.value for cell in cells) if outputs else value

    def call(*args, errors='raise', **named):
        if named or len(args) != len(inputs):
            args = _bind(name, inputs, args, named)
        if errors not in ('raise', 'nan'):
            raise ValueError('errors must be "raise" or "nan", not %r' % (errors,))
        for arg in args:
            if type(arg) not in _SCALARS:
                break
        else:
            return plain(errors, *args)
        if evaluator is not None:
            if _arrays.array_arguments(args) is None:
                return plain(errors, *_arrays.scalar_arguments(args))
            if any(_arrays.is_dask(arg) for arg in args):
                return _arrays.evaluate_dask(evaluator, args, errors)
            return evaluator.evaluate(args, errors)
        return _over_lists(lambda *each: plain(errors, *each), args)

    call.__name__ = call.__qualname__ = name
    call.__doc__ = DOCS.get(name)
    call.__signature__ = _signature(inputs, numeric)
    return call


_lib.tvlGETLASTERROR.restype = ctypes.c_int32
_lib.tvlGETLASTERROR.argtypes = []
_lib.tvlGETLASTERRORDESCRIPTION.restype = ctypes.c_char_p
_lib.tvlGETLASTERRORDESCRIPTION.argtypes = []
_lib.tvlSETLASTERROR.restype = ctypes.c_int32
_lib.tvlSETLASTERROR.argtypes = [ctypes.c_int32]

for _name, _result, _params, _family in EXPORTS:
    globals()[_name] = _declare(_name, _result, _params)

from .water import Water  # noqa: E402  (needs the library loaded above)
