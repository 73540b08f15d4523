"""The module as installed: a wheel built with pip into a fresh virtual environment, `make install`
under a prefix, and the report when no library can be found. Each runs Python from outside the
source tree, without PYTHONPATH or TAVLIB6_LIBRARY."""
import glob
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

import tavlib6

ROOT = os.environ.get('TAVLIB6_SOURCE_DIR', os.path.join(os.path.dirname(__file__), '..', '..'))
BUILD = os.path.dirname(os.path.abspath(tavlib6.library_path))

# What a user checks first, run inside the installed module.
USER_CHECKS = '''
import os, pydoc, sys, tavlib6
assert tavlib6.__version__ == sys.argv[1], tavlib6.__version__
assert tavlib6.library_path.startswith(sys.argv[2]), tavlib6.library_path
assert tavlib6.HPT(p=1e5, T=300.0) == tavlib6.HPT(1e5, 300.0) > 0
text = pydoc.render_doc(tavlib6.HPT, renderer=pydoc.plaintext)
assert 'p pressure [Pa]' in text and 'T temperature [K]' in text, text
folder = os.path.dirname(tavlib6.__file__)
assert os.path.exists(os.path.join(folder, '__init__.pyi')) and os.path.exists(os.path.join(folder, 'py.typed'))
h, s = tavlib6.HSTX(373.15, 0.1), tavlib6.SSTX(373.15, 0.1)
assert s < tavlib6.SSWT(647.096)
w = tavlib6.Water(h=h, s=s)
assert abs(w.T - 373.15) < 1e-9 and abs(w.x - 0.1) < 1e-9 and w.region == 4, (w.T, w.x, w.region)
print('ok')
'''


def outside_python(python, *args, **env):
    clean = {k: v for k, v in os.environ.items() if k not in ('PYTHONPATH', 'TAVLIB6_LIBRARY', 'TAVLIB6X_LIBRARY')}
    clean.update(env)
    return subprocess.run([python, *args], capture_output=True, text=True, timeout=900, env=clean,
                          cwd=tempfile.gettempdir())


def has_modules(*names):
    return all(subprocess.run([sys.executable, '-c', 'import ' + n], capture_output=True).returncode == 0 for n in names)


class PackageTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix='tavlib6-package-')
        self.addCleanup(shutil.rmtree, self.folder, True)

    @unittest.skipUnless(shutil.which('cmake') and has_modules('pip', 'venv', 'setuptools', 'wheel'),
                         'needs cmake, pip, venv, setuptools and wheel (python3-pip python3-venv python3-wheel)')
    def test_wheel_in_a_fresh_environment(self):
        venv = os.path.join(self.folder, 'venv')
        subprocess.run([sys.executable, '-m', 'venv', '--system-site-packages', venv], check=True, timeout=300)
        python = os.path.join(venv, 'bin', 'python')
        wheels = os.path.join(self.folder, 'wheels')
        built = outside_python(python, '-m', 'pip', 'wheel', '--no-build-isolation', '--no-deps', '-q', '-w', wheels,
                               os.path.abspath(ROOT))
        self.assertEqual(built.returncode, 0, built.stdout + built.stderr)
        wheel = glob.glob(os.path.join(wheels, 'tavlib6-%s-*.whl' % tavlib6.__version__))
        self.assertEqual(len(wheel), 1, os.listdir(wheels))
        installed = outside_python(python, '-m', 'pip', 'install', '--no-index', '--no-deps', '-q', wheel[0])
        self.assertEqual(installed.returncode, 0, installed.stderr)
        run = outside_python(python, '-c', USER_CHECKS, tavlib6.__version__, venv)
        self.assertEqual((run.returncode, run.stdout.strip()), (0, 'ok'), run.stderr)

    @unittest.skipUnless(shutil.which('cmake') and os.path.exists(os.path.join(BUILD, 'cmake_install.cmake')),
                         'needs cmake and the CMake build of the library')
    def test_make_install_puts_the_module_beside_the_library(self):
        prefix = os.path.join(self.folder, 'prefix')
        done = subprocess.run(['cmake', '--install', BUILD, '--prefix', prefix], capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stderr)
        location = glob.glob(os.path.join(prefix, 'lib', 'python*', '*', 'tavlib6', '_location.py'))
        self.assertEqual(len(location), 1)
        site = os.path.dirname(os.path.dirname(location[0]))
        run = outside_python(sys.executable, '-c', USER_CHECKS, tavlib6.__version__, prefix, PYTHONPATH=site)
        self.assertEqual((run.returncode, run.stdout.strip()), (0, 'ok'), run.stderr)

    def test_missing_library_names_every_place_tried(self):
        package = os.path.join(self.folder, 'site', 'tavlib6')
        shutil.copytree(os.path.join(os.path.dirname(tavlib6.__file__)), package,
                        ignore=shutil.ignore_patterns('*.so', '*.dll', '_location.py', '__pycache__'))
        missing = os.path.join(self.folder, 'nowhere', 'libtavlib6.so')
        run = outside_python(sys.executable, '-c', 'import tavlib6', PYTHONPATH=os.path.dirname(package),
                             TAVLIB6_LIBRARY=missing)
        self.assertNotEqual(run.returncode, 0)
        for expected in ('TAVLIB6_LIBRARY', missing, package, 'the build tree', 'the system loader'):
            self.assertIn(expected, run.stderr)


if __name__ == '__main__':
    unittest.main()
