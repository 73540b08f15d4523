"""Builds the two libraries with CMake into the package; the rest is in pyproject.toml.

Everything setuptools writes goes to build-python/ (build/ is the CMake build of a checkout).
The CMake build directory is build-python/temp.../cmake; ccache is used where it is installed, and
CMAKE_BUILD_PARALLEL_LEVEL (default 2) sets the number of compile jobs. The libraries are
built with the RPATH they have when installed ($ORIGIN), so libtavlib6x finds libtavlib6
beside it inside the package.
"""
import os
import shutil
import subprocess
import sys

from setuptools import setup
from setuptools.command.build_py import build_py

try:
    from setuptools.command.bdist_wheel import bdist_wheel
except ImportError:
    from wheel.bdist_wheel import bdist_wheel

ROOT = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(ROOT, 'python', 'tavlib6'))
from _library import NAMES  # noqa: E402  (the file names the module looks for)


class BuildWithLibraries(build_py):
    def run(self):
        super().run()
        build = os.path.join(os.path.abspath(self.get_finalized_command('build').build_temp), 'cmake')
        configure = ['cmake', '-S', ROOT, '-B', build, '-DCMAKE_BUILD_TYPE=Release', '-DTAVLIB6_TESTS=OFF',
                     '-DCMAKE_BUILD_WITH_INSTALL_RPATH=ON']
        if shutil.which('ccache'):
            configure += ['-DCMAKE_C_COMPILER_LAUNCHER=ccache', '-DCMAKE_CXX_COMPILER_LAUNCHER=ccache']
        subprocess.check_call(configure)
        jobs = os.environ.get('CMAKE_BUILD_PARALLEL_LEVEL', '2')
        subprocess.check_call(['cmake', '--build', build, '-j', jobs, '--config', 'Release',
                               '--target', 'tavlib6', 'tavlib6x'])
        package = os.path.join(self.build_lib, 'tavlib6')
        for name in NAMES:
            found = [os.path.join(folder, name) for folder in (build, os.path.join(build, 'Release'))
                     if os.path.exists(os.path.join(folder, name))]
            if not found:
                raise RuntimeError('CMake built no %s in %s' % (name, build))
            shutil.copy2(found[0], os.path.join(package, name))


class PlatformWheel(bdist_wheel):
    """The libraries make the wheel one of a platform, for any Python 3 (the module is ctypes)."""

    def finalize_options(self):
        super().finalize_options()
        self.root_is_pure = False

    def get_tag(self):
        return ('py3', 'none', super().get_tag()[2])


BUILD_BASE = 'build-python'
os.makedirs(os.path.join(ROOT, BUILD_BASE), exist_ok=True)
setup(cmdclass={'build_py': BuildWithLibraries, 'bdist_wheel': PlatformWheel},
      options={'build': {'build_base': BUILD_BASE}, 'egg_info': {'egg_base': BUILD_BASE}})
