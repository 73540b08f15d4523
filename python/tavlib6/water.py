"""Water: an immutable state of water or steam, fixed by a pair of variables, with every property.

    w = tavlib6.Water(p=5e6, T=700.0)
    w.h, w.s, w.rho, w.cp, w.eta, w.lambda_
    wet = tavlib6.Water(h=1.74e6, s=3910.0)     # found as the wet state it is: wet.T, wet.p, wet.x
    tavlib6.Water(T=373.15, x=0.5).v

The state is found once, in libtavlib6x (tvlxSTATE), which tests the wet area itself for every
pair, so a wet state is wet by (h,s), (p,h) and (p,s) alike, on both sides of the critical point.
"""
import ctypes
import math

from . import _batch, _error_text, TavlibError
from ._docs import STATE_PROPERTIES

try:
    import numpy as np
except ImportError:
    np = None

# The pairs a state may be given by, in the order of their arguments, and their names in
# tvlxSTATE.
_PAIRS = {
    frozenset('pT'): ('p', 'T', 'pT'), frozenset('ph'): ('p', 'h', 'ph'), frozenset('ps'): ('p', 's', 'ps'),
    frozenset('hs'): ('h', 's', 'hs'), frozenset('Tx'): ('T', 'x', 'Tx'), frozenset('px'): ('p', 'x', 'px'),
}
_double, _int32 = ctypes.c_double, ctypes.c_int32
_double_p, _int32_p = ctypes.POINTER(ctypes.c_double), ctypes.POINTER(ctypes.c_int32)
_NOT_WET = -1  # TVLX_NOT_WET: the code of x outside the wet area


def _state_names():
    """The properties of a state in the order of tvlxSTATE, by the names it gives them."""
    names = []
    while _batch is not None and _batch.tvlxSTATENAME(len(names)) is not None:
        names.append(_batch.tvlxSTATENAME(len(names)).decode('ascii'))
    return names


_NAMES = _state_names()
_COUNT = len(_NAMES)
# Python names where those differ.
_PYTHON_NAME = {'lambda': 'lambda_', 'JT': 'mu_JT'}
_INDEX = {_PYTHON_NAME.get(name, name): k for k, name in enumerate(_NAMES)}
_INTEGERS = ('region', 'phase')


def _is_array(value):
    return not isinstance(value, (int, float)) and np is not None


class Water:
    """A state of water or steam: Water(p=..., T=...), or by (p,h), (p,s), (h,s), (T,x), (p,x).

    Units SI: p in Pa, T in K, h in J/kg, s in J/(kg K), x from 0 (saturated water) to 1
    (saturated steam). Properties: T, p, rho (kg/m3), v (m3/kg), u, h (J/kg), s, cp, cv
    (J/(kg K)), w (speed of sound, m/s), x, region (1, 2, 3, 5 of IAPWS-IF97, 4 in the wet
    area, saturation lines included), phase (1 liquid, 2 vapour, 3 supercritical, 4 wet
    mixture), eta (dynamic viscosity, Pa s), lambda_ (thermal conductivity, W/(m K); also k),
    Pr (Prandtl number), nu (kinematic viscosity, m2/s), kappa (isentropic exponent
    w^2/(p v)), mu_JT (Joule-Thomson coefficient, K/Pa). ``properties()`` gives them all.

    x is None outside the wet area, 0 or 1 on the saturation lines. A wet mixture (0 < x < 1)
    has no cp, eta, lambda_, Pr or nu: reading them raises ``TavlibError`` naming the property
    with the library's code 2, as does any property the library cannot give. A pair that names
    no state (out of range, no convergence) raises ``TavlibError`` when the state is made.

    The variables may be arrays (with numpy), broadcast together: every property is then an
    array; x is NaN outside the wet area. With ``errors="nan"`` a failing element gives NaN
    instead of raising. A state is immutable: assigning an attribute raises AttributeError;
    make a new state instead.
    """

    __slots__ = ('_given', '_values', '_codes', '_errors')

    def __init__(self, *, errors='raise', **pair):
        if _batch is None:
            raise RuntimeError('Water needs the batch library libtavlib6x beside libtavlib6')
        if errors not in ('raise', 'nan'):
            raise ValueError('errors must be "raise" or "nan", not %r' % (errors,))
        known = _PAIRS.get(frozenset(pair))
        if known is None or len(pair) != 2:
            raise TypeError('Water takes one pair of %s, not %s' % (
                ', '.join('(%s,%s)' % k[:2] for k in _PAIRS.values()), ','.join(sorted(pair)) or 'nothing'))
        first, second, name = known
        a, b = pair[first], pair[second]
        setter = object.__setattr__
        setter(self, '_given', ((first, a), (second, b)))
        setter(self, '_errors', errors)
        if _is_array(a) or _is_array(b):
            values, codes = self._solve_arrays(name, a, b)
        else:
            values, codes = self._solve_one(name, float(a), float(b))
        setter(self, '_values', values)
        setter(self, '_codes', codes)

    def _solve_one(self, name, a, b):
        values = (_double * _COUNT)()
        codes = (_int32 * _COUNT)()
        code = _batch.tvlxSTATE(name.encode('ascii'), a, b, values, codes)
        if code != 0 and self._errors == 'raise':
            raise TavlibError(code, _error_text(code), what=repr(self))
        return list(values), list(codes)

    def _solve_arrays(self, name, a, b):
        a, b = np.broadcast_arrays(np.asarray(a, dtype=np.float64), np.asarray(b, dtype=np.float64))
        shape = a.shape
        a, b = np.ascontiguousarray(a).reshape(-1), np.ascontiguousarray(b).reshape(-1)
        values = np.empty((a.size, _COUNT), dtype=np.float64)
        codes = np.empty((a.size, _COUNT), dtype=np.int32)
        failed = _batch.tvlxSTATES(name.encode('ascii'), a.size, a.ctypes.data_as(_double_p),
                                   b.ctypes.data_as(_double_p), values.ctypes.data_as(_double_p),
                                   codes.ctypes.data_as(_int32_p))
        values, codes = values.T.reshape((_COUNT,) + shape), codes.T.reshape((_COUNT,) + shape)
        if failed and self._errors == 'raise':
            bad = np.argwhere(codes[0] != 0)[0]
            code = int(codes[0][tuple(bad)])
            raise TavlibError(code, _error_text(code), tuple(bad), codes[0], what='Water state')
        return values, codes

    def _property(self, name):
        k = _INDEX[name]
        value, code = self._values[k], self._codes[k]
        if np is not None and isinstance(value, np.ndarray):
            return self._array_property(name, value, code)
        if code == _NOT_WET and name == 'x':
            return None
        if code != 0:
            if self._errors == 'nan':
                return math.nan
            text = _error_text(code)
            if self._codes[_INDEX['phase']] == 0 and self._values[_INDEX['phase']] == 4:
                text += ' A wet mixture has no %s.' % name
            raise TavlibError(code, text, what='%s of %r' % (name, self))
        return int(value) if name in _INTEGERS else value

    def _array_property(self, name, value, code):
        value = value.copy()
        if name == 'x':
            value[code == _NOT_WET] = np.nan
            code = np.where(code == _NOT_WET, 0, code)
        bad = code != 0
        if bad.any():
            if self._errors == 'raise':
                index = tuple(np.argwhere(bad)[0])
                raise TavlibError(int(code[index]), _error_text(int(code[index])), index, code,
                                  what='%s of a Water state' % name)
            value[bad] = np.nan
        elif name in _INTEGERS:
            value = value.astype(np.int32)
        return value[()] if value.ndim == 0 else value

    def properties(self):
        """Every property by its name; a property the state has not (cp of a wet mixture) is None."""
        found = {}
        for name in _INDEX:
            try:
                found[name] = self._property(name)
            except TavlibError:
                found[name] = None
        return found

    def __setattr__(self, name, value):
        raise AttributeError('a Water state cannot be changed; make a new one, Water(%s=..., %s=...)'
                             % tuple(n for n, _ in self._given))

    def __delattr__(self, name):
        raise AttributeError('a Water state cannot be changed')

    def __repr__(self):
        return 'Water(%s)' % ', '.join('%s=%r' % item for item in self._given)


def _make_property(name, doc):
    return property(lambda self: self._property(name), doc=doc)


for _name in _INDEX:
    setattr(Water, _name, _make_property(_name, STATE_PROPERTIES.get(_name)))
Water.k = Water.lambda_  # thermal conductivity, as the heat-transfer books write it
