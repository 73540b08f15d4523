"""The tvl command: values, outputs, errors and the listing."""
import os
import subprocess
import unittest

TVL = os.environ.get('TVL', os.path.join(os.path.dirname(__file__), '..', '..', 'build', 'tvl'))


def tvl(*args):
    return subprocess.run([TVL, *args], capture_output=True, text=True, timeout=60)


class CommandTest(unittest.TestCase):
    def test_prints_the_value_with_17_digits(self):
        run = tvl('V1PT', '3e6', '300')
        self.assertEqual(run.returncode, 0)
        self.assertEqual(run.stdout.strip(), '0.0010021516796866945')

    def test_precision_option(self):
        self.assertEqual(tvl('-p', '6', 'PST', '273.15').stdout.strip(), '611.213')

    def test_name_with_prefix_in_any_case(self):
        for name in ('tvlH1PT', 'h1pt', 'TVLH1PT'):
            self.assertEqual(tvl(name, '3e6', '300').stdout.strip(), '115331.27302143839', name)

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

    def test_list_names_every_export(self):
        listing = tvl('--list').stdout
        for name in ('H1PT', 'PST', 'GETLASTERRORDESCRIPTION', 'PT1RH'):
            self.assertIn(name, listing)
        self.assertIn('p T', listing)


if __name__ == '__main__':
    unittest.main()
