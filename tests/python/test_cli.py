"""The tvl command: values, units, outputs, errors, help, the listing and whole states."""
import os
import subprocess
import unittest

import tavlib6

TVL = os.environ.get('TVL', os.path.join(os.path.dirname(__file__), '..', '..', 'build', 'tvl'))


def tvl(*args):
    return subprocess.run([TVL, *args], capture_output=True, text=True, timeout=60)


class CommandTest(unittest.TestCase):
    def test_prints_10_digits_or_those_asked_for(self):
        run = tvl('V1PT', '3e6', '300')
        self.assertEqual(run.returncode, 0)
        self.assertEqual(run.stdout.strip(), '0.00100215168')
        self.assertEqual(tvl('-p', '17', 'V1PT', '3e6', '300').stdout.strip(), '0.0010021516796866945')
        self.assertEqual(tvl('-p', '6', 'PST', '273.15').stdout.strip(), '611.213')

    def test_name_with_prefix_in_any_case(self):
        for name in ('tvlH1PT', 'h1pt', 'TVLH1PT'):
            self.assertEqual(tvl(name, '3e6', '300').stdout.strip(), '115331.273', name)

    def test_outputs_are_labelled(self):
        lines = tvl('PT1HS', '500000', '1400').stdout.split()
        self.assertEqual([line.split('=')[0] for line in lines], ['p', 'T'])
        combined = tvl('VUSHCVWDERPT1PT', '5e6', '400').stdout.split()
        self.assertEqual(combined[0].split('=')[0], 'v')
        self.assertEqual(combined[13].split('=')[0], 'dhdT')

    def test_failure_prints_code_and_text_and_exits_2(self):
        run = tvl('PST', '200')
        self.assertEqual(run.returncode, 2)
        self.assertEqual(run.stderr.strip(), 'error 2: 2. Parameters are out of range.')
        self.assertEqual(run.stdout, '')

    def test_usage_errors(self):
        self.assertEqual(tvl('NOSUCHEXPORT').returncode, 1)
        self.assertEqual(tvl('H1PT', '1e5').returncode, 1)
        self.assertEqual(tvl('H1PT', '1e5', 'hot').returncode, 1)

    def test_units_in_and_out_help_and_version(self):
        self.assertEqual(tvl('-p', '15', 'HPT', '50bar', '426.85C').stdout, tvl('-p', '15', 'HPT', '5e6', '700').stdout)
        self.assertEqual(tvl('-p', '15', 'TPS', '0.1MPa', '7.5kJ/(kg K)').stdout, tvl('-p', '15', 'TPS', '1e5', '7500').stdout)
        self.assertEqual(tvl('--units', 'engineering', '-p', '6', 'TSP', '1000mbar').stdout, '99.6059 \u00b0C\n')
        self.assertEqual(tvl('--units', 'engineering', '-p', '4', 'PTHS', '2800kJ/kg', '6kJ/kgK').stdout,
                         'p=4.794 MPa\nT=262.3 \u00b0C\n')
        self.assertEqual(tvl('HPT', '5e6', '3kJ/kg').returncode, 1)
        text = tvl('HPT', '--help').stdout
        for part in ('usage: tvl HPT p T', 'pressure [Pa]', 'MPa, GPa, bar', 'up to 50 MPa', '2: '):
            self.assertIn(part, text)
        self.assertIn('6.5', tvl('--version').stdout)

    def state(self, *pair):
        run = tvl('state', '--units', 'si', '-p', '12', *pair)
        self.assertEqual(run.returncode, 0, run.stderr)
        lines = run.stdout.splitlines()
        return dict([('region', lines[0].split()[1])] + [(line.split()[0], line.split()[1]) for line in lines[2:]])

    def test_state_by_any_pair_and_wet_everywhere(self):
        given = self.state('p=10MPa', 'T=550C')
        self.assertEqual((given['region'], given['T']), ('2', '823.15'))
        for a, b in (('p', 'h'), ('p', 's'), ('h', 's')):
            found = self.state('%s=%s' % (a, given[a]), '%s=%s' % (b, given[b]))
            self.assertAlmostEqual(float(found['T']), 823.15, 6, (a, b))
        for T, x in ((600.0, 0.1), (640.0, 0.95), (373.15, 0.5)):
            wet = self.state('h=%r' % tavlib6.HSTX(T, x), 's=%r' % tavlib6.SSTX(T, x))
            self.assertEqual((wet['region'], wet['cp']), ('4', '-'))
            self.assertAlmostEqual(float(wet['x']), x, 8)
            self.assertAlmostEqual(float(wet['T']), T, 6)
        self.assertEqual(tvl('state', 'p=1bar', 'v=2').returncode, 1)

    def test_list_names_every_export(self):
        listing = tvl('--list').stdout
        for name in ('H1PT', 'PST', 'GETLASTERRORDESCRIPTION', 'PT1RH'):
            self.assertIn(name, listing)
        self.assertIn('p T', listing)


if __name__ == '__main__':
    unittest.main()
