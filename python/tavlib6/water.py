"""Water: a state of water or steam fixed by two (or three) of its variables, whose properties
are calculated when read, each by the export of the state's pair.

    w = tavlib6.Water(p=5e6, T=700.0)
    w.h, w.s, w.cp, w.eta        # HPT, SPT, CPPT, DYNVISPT at (5e6, 700)
    tavlib6.Water(p=1e5, h=2.5e6).x
    tavlib6.Water(T=373.15, x=0.5).v

The variables may be arrays (with numpy): every property is then an array. ``errors`` is
passed on to each call ("raise" or "nan"). Any export of the pair is reachable by its
property name in upper case: ``Water(p=1e6, T=500).JOULETHOMPSON`` calls JOULETHOMPSONPT.
"""
import sys

# The pairs a state may be given by, and the suffix of the exports that take them.
_PAIRS = (
    (('p', 'T'), 'PT'), (('p', 'h'), 'PH'), (('p', 's'), 'PS'), (('h', 's'), 'HS'),
    (('T', 'x'), 'STX'), (('p', 'T', 'x'), 'PTX'),
)
# Short names of properties, as engineers write them, and the words of the exports' names.
_ALIASES = {
    'v': 'V', 'rho': 'D', 'u': 'U', 'h': 'H', 's': 'S', 'cp': 'CP', 'cv': 'CV', 'w': 'W',
    'T': 'T', 'p': 'P', 'x': 'X', 'eta': 'DYNVIS', 'lam': 'THERMCOND', 'nu': 'KINVIS',
    'Pr': 'PRANDTLE', 'kappa': 'K', 'mu_JT': 'JOULETHOMPSON', 'region': 'WATERSTATEAREA',
}


class Water:
    """A state of water or steam: Water(p=..., T=...), or by (p,h), (p,s), (h,s), (T,x), (p,T,x)."""

    def __init__(self, errors='raise', **state):
        for names, suffix in _PAIRS:
            if set(state) == set(names):
                break
        else:
            raise TypeError('Water takes one of %s, not %s' % (
                ', '.join('(%s)' % ','.join(n) for n, _ in _PAIRS), ','.join(sorted(state)) or 'nothing'))
        self._state = state
        self._names = names
        self._suffix = suffix
        self._errors = errors

    def __getattr__(self, attribute):
        state = self.__dict__.get('_state')
        if state is None:
            raise AttributeError(attribute)
        if attribute in state:
            return state[attribute]
        word = _ALIASES.get(attribute, attribute if attribute.isupper() else None)
        module = sys.modules[__package__]
        function = getattr(module, (word or '') + self._suffix, None) if word else None
        if function is None:
            raise AttributeError('no export gives %s by (%s)' % (attribute, ','.join(self._names)))
        return function(*(state[n] for n in self._names), errors=self._errors)

    def __repr__(self):
        return 'Water(%s)' % ', '.join('%s=%r' % (n, self._state[n]) for n in self._names)
