"""tvl table and tvl chart: the CSV read back and compared with direct calls, the text table's
layout, and charts that are well-formed SVG with the saturation line and labelled axes."""
import csv
import io
import math
import os
import re
import shutil
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

import tavlib6

TVL = os.environ.get('TVL', os.path.join(os.path.dirname(__file__), '..', '..', 'build', 'tvl'))
SVG = '{http://www.w3.org/2000/svg}'
# CSV cells carry 12 significant digits.
CSV_TOLERANCE = 1e-11


def tvl(*args):
    return subprocess.run([TVL, *args], capture_output=True, text=True, timeout=120)


def read_csv(text):
    rows = list(csv.reader(io.StringIO(text)))
    return rows[0], [[float(cell) if cell else math.nan for cell in row] for row in rows[1:]]


def plain(function, *args):
    try:
        return function(*args)
    except tavlib6.TavlibError:
        return math.nan


class TableTest(unittest.TestCase):
    def assertClose(self, value, expected, label):
        if math.isnan(expected):
            self.assertTrue(math.isnan(value), label)
        else:
            self.assertLessEqual(abs(value - expected), CSV_TOLERANCE * max(abs(expected), 1e-300) + 1e-300, label)

    def check_saturation_rows(self, rows, scales, temperatures=None):
        for n, row in enumerate(rows):
            T = temperatures[n] if temperatures else row[0] + 273.15
            expected = [T - (0 if temperatures else 273.15), row[1] / scales[1] if temperatures else plain(tavlib6.PST, T)]
            expected += [plain(f, T) for f in (tavlib6.VSWT, tavlib6.VSST, tavlib6.USWT, tavlib6.USST, tavlib6.HSWT,
                                               tavlib6.HSST, tavlib6.RST, tavlib6.SSWT, tavlib6.SSST)]
            for k, (value, reference) in enumerate(zip(row, expected)):
                self.assertClose(value, reference * scales[k], 'T=%g column %d' % (T, k))

    def test_saturation_by_temperature_csv(self):
        run = tvl('table', 'saturation-T', '300,373.15,500', '326.85C:366.85C:20C', '--csv')
        self.assertEqual(run.returncode, 0, run.stderr)
        header, rows = read_csv(run.stdout)
        self.assertEqual(header, ["t [\u00b0C]", "p [MPa]", "v' [m3/kg]", "v'' [m3/kg]", "u' [kJ/kg]", "u'' [kJ/kg]",
                                  "h' [kJ/kg]", "h'' [kJ/kg]", "r [kJ/kg]", "s' [kJ/(kg K)]", "s'' [kJ/(kg K)]"])
        self.assertEqual([round(row[0] + 273.15, 9) for row in rows], [300, 373.15, 500, 600, 620, 640])
        self.check_saturation_rows(rows, [1, 1e-6] + [1] * 2 + [1e-3] * 7)

    def test_saturation_by_pressure_in_si_units(self):
        run = tvl('table', 'saturation-p', '1e5,10bar,20MPa', '--csv', '--si')
        header, rows = read_csv(run.stdout)
        self.assertEqual(header[:2] + header[6:7], ['T [K]', 'p [Pa]', "h' [J/kg]"])
        self.assertEqual([row[1] for row in rows], [1e5, 1e6, 2e7])
        # The rows are calculated at the saturation temperature itself, not at its 12 digits.
        self.check_saturation_rows(rows, [1] * 11, [tavlib6.TSP(row[1]) for row in rows])

    def test_isobar_tables_hold_only_states_of_their_kind(self):
        for kind, liquid in (('superheated', False), ('compressed', True)):
            run = tvl('table', kind, '1e6,300bar', '--T', '0C:800C:50C', '--csv')
            header, rows = read_csv(run.stdout)
            self.assertEqual(header, ['p [MPa]', 't [\u00b0C]', 'v [m3/kg]', 'u [kJ/kg]', 'h [kJ/kg]',
                                      's [kJ/(kg K)]', 'cp [kJ/(kg K)]', 'w [m/s]'])
            self.assertEqual({row[0] for row in rows}, {1, 30})
            for row in rows:
                p, T = row[0] * 1e6, row[1] + 273.15
                dividing = tavlib6.TSP(p) if p < 22.064e6 else 647.096
                self.assertEqual(T < dividing, liquid, (kind, p, T))
                expected = [tavlib6.VPT(p, T), tavlib6.UPT(p, T) * 1e-3, tavlib6.HPT(p, T) * 1e-3,
                            tavlib6.SPT(p, T) * 1e-3, tavlib6.CPPT(p, T) * 1e-3, tavlib6.WPT(p, T)]
                for k, reference in enumerate(expected):
                    self.assertClose(row[2 + k], reference, 'p=%g T=%g column %d' % (p, T, k))

    def test_text_table_is_aligned_with_units_and_dashes_for_failures(self):
        run = tvl('table', 'saturation-T', '200,300,700')
        self.assertEqual(run.returncode, 0, run.stderr)
        lines = run.stdout.splitlines()
        self.assertIn('h\'\' [kJ/kg]', lines[1])
        self.assertIn("s' [kJ/(kg K)]", lines[1])
        self.assertEqual(len({len(line) for line in lines[1:]}), 1, lines)
        self.assertEqual(lines[2].split()[1:], ['-'] * 10)
        self.assertEqual(lines[3].split()[0], '26.85')
        self.assertEqual(lines[3].split()[6], '%.2f' % (tavlib6.HSWT(300.0) * 1e-3))

    def test_usage_errors(self):
        self.assertEqual(tvl('table', 'wet').returncode, 1)
        self.assertEqual(tvl('table', 'saturation-T', 'hot').returncode, 1)
        self.assertEqual(tvl('table', 'superheated').returncode, 1)
        self.assertEqual(tvl('table', 'superheated', '1e5', '--T', '500:400:10').returncode, 1)


class ChartTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp()

    def tearDown(self):
        shutil.rmtree(self.folder)

    def chart(self, kind, *options):
        path = os.path.join(self.folder, kind + '.svg')
        run = tvl('chart', kind, '--out', path, *options)
        return run, path

    def parse(self, path):
        root = ElementTree.parse(path).getroot()
        self.assertEqual(root.tag, SVG + 'svg')
        groups = {g.get('id'): g for g in root.iter(SVG + 'g') if g.get('id')}
        texts = [t.text for t in root.iter(SVG + 'text')]
        return root, groups, texts

    def points(self, group):
        return [tuple(map(float, pair.split(','))) for line in group.iter(SVG + 'polyline')
                for pair in line.get('points').split()]

    def test_each_chart_has_the_dome_its_lines_and_labelled_axes(self):
        axes = {'hs': ('s [kJ/(kg K)]', 'h [kJ/kg]'), 'ts': ('s [kJ/(kg K)]', 't [\u00b0C]'), 'ph': ('h [kJ/kg]', 'p [MPa]')}
        families = {'hs': ('isobars', 'isotherms', 'dryness'), 'ts': ('isobars', 'dryness', 'isenthalps'),
                    'ph': ('isotherms', 'dryness', 'isentropes')}
        for kind in ('hs', 'ts', 'ph'):
            run, path = self.chart(kind)
            self.assertEqual(run.returncode, 0, run.stderr)
            root, groups, texts = self.parse(path)
            for label in axes[kind]:
                self.assertIn(label, texts, kind)
            self.assertGreater(len(self.points(groups['saturation-line'])), 200, kind)
            for family in families[kind]:
                self.assertGreater(len(list(groups[family].iter(SVG + 'polyline'))), 5, (kind, family))
            self.assertTrue(any(t and t.endswith('MPa') or t and t.endswith('\u00b0C') for t in texts), kind)
            self.assertIn('x=0.5', texts)

    def test_dome_top_is_the_critical_point(self):
        # On the T-s chart the highest point of the saturation line is the critical point's circle.
        run, path = self.chart('ts')
        root, groups, texts = self.parse(path)
        top = min(y for _, y in self.points(groups['saturation-line']))
        circles = [(float(c.get('cx')), float(c.get('cy'))) for c in root.iter(SVG + 'circle')]
        self.assertTrue(any(abs(cy - top) < 0.6 for _, cy in circles), (top, circles))
        self.assertIn('critical point', texts)

    def test_expansion_and_points(self):
        run, path = self.chart('hs', '--expansion', '1e7,773.15,1e4,0.85', '--point', '7,3000', '--point', '2,9000')
        self.assertIn('point B (2, 9000) lies outside the view', run.stderr)
        self.assertEqual(run.returncode, 0, run.stderr)
        root, groups, texts = self.parse(path)
        self.assertIn('expansion', groups)
        drop = (tavlib6.HPT(1e7, 773.15) - tavlib6.HEXPANSIONPTPEFF(1e7, 773.15, 1e4, 0.85)) * 1e-3
        self.assertTrue(any(t and 'h1 - h2 = %.1f kJ/kg' % drop in t for t in texts), texts[:5])
        for name in ('1', '2', '2s', 'A'):
            self.assertIn(name, texts)

    def test_bad_arguments(self):
        self.assertEqual(self.chart('ph', '--y', '0:10')[0].returncode, 1)
        self.assertEqual(self.chart('hs', '--x', '1:2:3')[0].returncode, 1)
        self.assertEqual(tvl('chart', 'hs').returncode, 1)
        self.assertEqual(tvl('chart', 'xy', '--out', os.path.join(self.folder, 'a.svg')).returncode, 1)
        self.assertEqual(self.chart('hs', '--point', '3e6')[0].returncode, 1)
        self.assertEqual(self.chart('hs', '--x', '5:1')[0].returncode, 1)
        self.assertEqual(self.chart('hs', '--point', 'nan,inf')[0].returncode, 1)
        self.assertEqual(tvl('chart', 'hs', '--out', os.path.join(self.folder, 'no', 'such', 'dir.svg')).returncode, 1)
        run, path = self.chart('hs', '--expansion', '1e7,200,1e4,0.85')
        self.assertEqual(run.returncode, 2)
        self.parse(path)

    def test_labels_do_not_overlap_and_name_the_lines(self):
        views = [('hs',), ('ts',), ('ph',), ('hs', '--x', '6:8', '--y', '2200:3000'), ('ph', '--x', '1500:3500', '--y', '1:30')]
        for view in views:
            run, path = self.chart(*view)
            root, groups, _ = self.parse(path)
            boxes = [(label_box(text), text.text) for text in groups['labels'].iter(SVG + 'text')]
            for k, (box, name) in enumerate(boxes):
                self.assertTrue(all(45 <= x <= 1066 and 73 <= y <= 729 for x, y in box), (view, name))
                for other, other_name in boxes[:k]:
                    self.assertTrue(separated(box, other), (view, name, other_name))
            drawn = sum(len(list(groups[g].iter(SVG + 'polyline'))) for g in ('isobars', 'isotherms') if g in groups)
            self.assertGreater(len(boxes), 0.8 * drawn, view)
        self.assertIn('100 MPa', self.parse(self.chart('ts')[1])[2])  # isobars above the critical pressure

    def test_png_through_rsvg_convert_or_a_refusal(self):
        png = os.path.join(self.folder, 'hs.png')
        if shutil.which('rsvg-convert'):
            self.assertEqual(tvl('chart', 'hs', '--out', png).returncode, 0)
            with open(png, 'rb') as f:
                self.assertEqual(f.read(8), b'\x89PNG\r\n\x1a\n')
        run = subprocess.run([TVL, 'chart', 'ph', '--out', png + '2.png'], capture_output=True, text=True,
                             env=dict(os.environ, PATH=self.folder), timeout=120)
        self.assertEqual(run.returncode, 1)
        self.assertIn('librsvg2-bin', run.stderr)


def label_box(text):
    """The corners of a label as tvl estimates it: 0.62 em a character, 0.78 em up, 0.22 em down."""
    size = float(re.search(r'font-size:([\d.]+)px', text.get('style')).group(1))
    x, y, width = float(text.get('x')), float(text.get('y')), 0.62 * size * len(text.text)
    left = -width if text.get('text-anchor') == 'end' else 0.0
    turn = re.search(r'rotate\(([-\d.]+)', text.get('transform') or 'rotate(0')
    a = math.radians(float(turn.group(1)))
    return [(x + u * math.cos(a) - v * math.sin(a), y + u * math.sin(a) + v * math.cos(a))
            for u, v in ((left, -0.78 * size), (left, 0.22 * size), (left + width, 0.22 * size), (left + width, -0.78 * size))]


def separated(a, b):
    """True when an axis of either box separates the two (a separating-axis test)."""
    for box in (a, b):
        for (x1, y1), (x2, y2) in zip(box[:2], box[1:3]):
            axis = (y1 - y2, x2 - x1)
            pa, pb = [[x * axis[0] + y * axis[1] for x, y in corners] for corners in (a, b)]
            if max(pa) < min(pb) or max(pb) < min(pa):
                return True
    return False


if __name__ == '__main__':
    unittest.main()
