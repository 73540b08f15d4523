"""The reference pages in docs/: every export has its row, and each family's example prints
what its page says when tvl runs it."""
import os
import re
import shlex
import subprocess
import sys
import unittest

from tavlib6._exports import EXPORTS

SOURCE = os.environ.get('TAVLIB6_SOURCE_DIR', os.path.join(os.path.dirname(__file__), '..', '..'))
TVL = os.environ.get('TVL', os.path.join(SOURCE, 'build', 'tvl'))
sys.path.insert(0, os.path.join(SOURCE, 'tools'))
import gen_docs  # noqa: E402


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

    def test_every_result_has_a_unit(self):
        notes = gen_docs.read_notes()
        for family in gen_docs.gen_exports.parse():
            own = notes.families.get(family.stem, gen_docs.FamilyNotes())
            for export in family.exports:
                what, _ = gen_docs.result_of(export, notes, own)
                self.assertNotEqual(what, 'see the notes of the family', export.name)

    def test_readme_links_the_reference(self):
        with open(os.path.join(SOURCE, 'README.md'), encoding='utf-8') as f:
            readme = f.read()
        self.assertTrue('docs/README.md' in readme, 'the README links docs/README.md')
        with open(os.path.join(SOURCE, 'docs', 'README.md'), encoding='utf-8') as f:
            index = f.read()
        for link in re.findall(r'\]\(([\w.]+\.md)\)', index):
            self.assertTrue(os.path.exists(os.path.join(SOURCE, 'docs', link)), link)


if __name__ == '__main__':
    unittest.main()
