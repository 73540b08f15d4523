"""Finding and loading libtavlib6 and the batch library libtavlib6x beside it.

The places tried, in order: the file that the environment variable TAVLIB6_LIBRARY names; this
package's own folder (a wheel carries the libraries there); the library folder of the prefix
that `make install` put this package under (_location.py, written by the install, holds it
relative to the package); the build tree of a source checkout (build/ beside python/); the
system's loader. libtavlib6x is taken from the folder of libtavlib6, or as TAVLIB6X_LIBRARY names it.
"""
import ctypes
import ctypes.util
import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))

if sys.platform == 'win32':
    NAMES = ('tavlib6.dll', 'libtavlib6x.dll')
elif sys.platform == 'darwin':
    NAMES = ('libtavlib6.dylib', 'libtavlib6x.dylib')
else:
    NAMES = ('libtavlib6.so', 'libtavlib6x.so')


def _candidates():
    """(description, path) of every place the library may be, in the order they are tried."""
    explicit = os.environ.get('TAVLIB6_LIBRARY')
    if explicit:
        yield 'TAVLIB6_LIBRARY', explicit
    yield 'the package folder', os.path.join(HERE, NAMES[0])
    try:
        from ._location import LIBRARY_DIR
        yield 'the installed library folder', os.path.normpath(os.path.join(HERE, LIBRARY_DIR, NAMES[0]))
    except ImportError:
        pass
    yield 'the build tree', os.path.normpath(os.path.join(HERE, '..', '..', 'build', NAMES[0]))
    yield 'the system loader', ctypes.util.find_library('tavlib6') or NAMES[0]


def load_library():
    """(path, CDLL) of libtavlib6; OSError naming every place tried when it is nowhere."""
    tried = []
    for where, path in _candidates():
        is_file = os.path.sep in path or (os.altsep and os.altsep in path)
        if is_file and not os.path.exists(path):
            tried.append('%s (%s): no such file' % (path, where))
            continue
        try:
            return path, ctypes.CDLL(path)
        except OSError as error:
            tried.append('%s (%s): %s' % (path, where, error))
    raise OSError('tavlib6 cannot find its library %s. Tried:\n  %s\nBuild it (cmake, or pip install .) or set '
                  'TAVLIB6_LIBRARY to the path of %s.' % (NAMES[0], '\n  '.join(tried), NAMES[0]))


def load_batch_library(library_path):
    """libtavlib6x beside the main library, or as TAVLIB6X_LIBRARY names it; None without it."""
    explicit = os.environ.get('TAVLIB6X_LIBRARY')
    folder = os.path.dirname(library_path)
    if explicit:
        candidate = explicit
    elif folder:
        candidate = os.path.join(folder, NAMES[1])
    else:
        candidate = ctypes.util.find_library('tavlib6x') or NAMES[1]
    try:
        library = ctypes.CDLL(candidate)
    except OSError:
        return None
    double_p = ctypes.POINTER(ctypes.c_double)
    int_p = ctypes.POINTER(ctypes.c_int32)
    library.tvlxEVALUATE.restype = ctypes.c_int64
    library.tvlxEVALUATE.argtypes = [ctypes.c_char_p, ctypes.c_int64, ctypes.POINTER(double_p),
                                     ctypes.POINTER(ctypes.c_int64), ctypes.POINTER(ctypes.c_char_p), double_p,
                                     ctypes.POINTER(double_p), int_p]
    library.tvlxCANEVALUATE.restype = ctypes.c_int32
    library.tvlxCANEVALUATE.argtypes = [ctypes.c_char_p]
    library.tvlxSETTHREADS.restype = ctypes.c_int32
    library.tvlxSETTHREADS.argtypes = [ctypes.c_int32]
    library.tvlxSTATE.restype = ctypes.c_int32
    library.tvlxSTATE.argtypes = [ctypes.c_char_p, ctypes.c_double, ctypes.c_double, double_p, int_p]
    library.tvlxSTATES.restype = ctypes.c_int64
    library.tvlxSTATES.argtypes = [ctypes.c_char_p, ctypes.c_int64, double_p, double_p, double_p, int_p]
    library.tvlxSTATENAME.restype = ctypes.c_char_p
    library.tvlxSTATENAME.argtypes = [ctypes.c_int32]
    return library
