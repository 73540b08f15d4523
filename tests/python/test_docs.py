"""The reference pages in docs/: every export has its row, each family's example prints what its
page says when tvl runs it, and every range, default and failure code the notes state holds."""
import math
import os
import shlex
import subprocess
import sys
import unittest

import tavlib6
from tavlib6._exports import EXPORTS

SOURCE = os.environ.get('TAVLIB6_SOURCE_DIR', os.path.join(os.path.dirname(__file__), '..', '..'))
TVL = os.environ.get('TVL', os.path.join(SOURCE, 'build', 'tvl'))
sys.path.insert(0, os.path.join(SOURCE, 'tools'))
import gen_docs  # noqa: E402

# Codes no call provokes on demand: a search running out of turns, memory running out.
UNPROVOKED = {3, 9}


def number_or_text(word):
    for kind in (int, float):
        try:
            return kind(word)
        except ValueError:
            pass
    return word


def code_of(name, *args):
    try:
        getattr(tavlib6, name)(*args)
        return 0
    except tavlib6.TavlibError as error:
        return error.code


def from_state(name, p, T):
    """The (h,s), (p,h) or (p,s) arguments of the state (p,T), from the equations unchecked."""
    tavlib6.SETCHECKRANGEMODE(0)
    h, s = tavlib6.HPT(p, T), tavlib6.SPT(p, T)
    tavlib6.SETCHECKRANGEMODE(1)
    return {'HS': (h, s), 'PH': (p, h), 'PS': (p, s)}[name[-2:]]


class DocsTest(unittest.TestCase):
    def test_every_export_has_its_row_on_its_family_page(self):
        pages = {}
        for name, _, _, family in EXPORTS:
            stem = next(f.stem for f in gen_docs.gen_exports.parse() if f.title == family)
            if stem not in pages:
                with open(os.path.join(SOURCE, 'docs', stem + '.md'), encoding='utf-8') as f:
                    pages[stem] = f.read()
            self.assertIn('| `tvl%s(' % name, pages[stem], name)

    def test_examples_print_what_the_pages_say(self):
        notes = gen_docs.read_notes()
        listed = {name for name, *_ in EXPORTS}
        ran = 0
        for stem, family in notes.families.items():
            if not family.example:
                continue
            words = shlex.split(family.example)
            name = next(w for w in words[1:] if not w.startswith('-') and not w.isdigit())
            if name not in listed:
                continue
            run = subprocess.run([TVL] + words[1:], capture_output=True, text=True, timeout=60)
            self.assertEqual((run.stdout + run.stderr).splitlines(), family.output, stem)
            ran += 1
        self.assertGreater(ran, 15)
        self.assertEqual([stem for stem, family in notes.families.items() if not family.example], [])

    def check_limits(self, check, where):
        index, ends = check.varying()
        for end, upper in zip(ends, (False, True)):
            if end is None:
                continue
            edge, beyond = end
            if beyond is None:
                beyond = edge + (1 if upper else -1) * max(abs(edge), 1.0) * 1e-9
            for value, answers in ((edge, True), (beyond, False)):
                args = [number_or_text(a) for a in check.args]
                args[index] = value
                if check.from_pt:
                    args = from_state(check.name, *args)
                code = code_of(check.name, *args)
                self.assertEqual(code == 0, answers, '%s at %r: code %d' % (where, value, code))

    def test_ranges_defaults_and_codes_hold(self):
        ran = 0
        for stem, family in gen_docs.read_notes().families.items():
            shown = {2} if any(c.kind == 'limits' for c in family.checks) else set()
            for check in family.checks:
                where = '%s: %s %s' % (stem, check.kind, check.name)
                args = [number_or_text(a) for a in check.args]
                if check.kind == 'limits':
                    self.check_limits(check, where)
                elif check.kind == 'default':
                    self.assertEqual(getattr(tavlib6, check.name)(), float(check.expected), where)
                elif check.kind == 'answers':
                    self.assertEqual(code_of(check.name, *args), 0, where)
                else:
                    self.assertEqual(code_of(check.name, *args), int(check.expected), where)
                    shown.add(int(check.expected))
                ran += 1
            name, *args = [number_or_text(w) for w in shlex.split(family.example)[1:]]
            if name == '-p':
                name, *args = args[1:]
            numbers = [k for k, a in enumerate(args) if not isinstance(a, str)]
            if numbers and 1 in (family.errors or []):
                args[numbers[-1]] = math.nan  # a NaN as the last number of the example is code 1
                self.assertEqual(code_of(name, *args), 1, stem)
                shown.add(1)
            self.assertEqual(set(family.errors or []) - shown - UNPROVOKED, set(), stem + ': codes not shown')
        self.assertGreater(ran, 80)

    def test_every_result_has_a_unit(self):
        notes = gen_docs.read_notes()
        for family in gen_docs.gen_exports.parse():
            own = notes.families.get(family.stem, gen_docs.FamilyNotes())
            for export in family.exports:
                what, _ = gen_docs.result_of(export, notes, own)
                self.assertNotEqual(what, 'see the notes of the family', export.name)


if __name__ == '__main__':
    unittest.main()
