# The Python module under the prefix. It finds the installed library through _location.py,
# which holds the library folder relative to the module's own, so the prefix stays relocatable.
# TAVLIB6_PYTHON_DIR is the folder below the prefix where the package goes: by default the one
# that the system's Python 3 searches under a prefix (lib/python3.X/dist-packages on Debian).
if(NOT DEFINED TAVLIB6_PYTHON_DIR)
  find_package(Python3 COMPONENTS Interpreter QUIET)
  set(python_version 3)
  if(EXISTS /usr/bin/python3)
    execute_process(COMMAND /usr/bin/python3 -c "import sys; print('%d.%d' % sys.version_info[:2])"
                    OUTPUT_VARIABLE python_version OUTPUT_STRIP_TRAILING_WHITESPACE)
  elseif(Python3_FOUND)
    set(python_version ${Python3_VERSION_MAJOR}.${Python3_VERSION_MINOR})
  endif()
  set(site_folder site-packages)
  if(EXISTS /usr/lib/python3/dist-packages)
    set(site_folder dist-packages)
  endif()
  set(TAVLIB6_PYTHON_DIR lib/python${python_version}/${site_folder} CACHE PATH "Folder of the Python module below the prefix")
endif()

if(WIN32)
  set(library_folder ${CMAKE_INSTALL_BINDIR})
else()
  set(library_folder ${CMAKE_INSTALL_LIBDIR})
endif()
file(RELATIVE_PATH library_from_module /prefix/${TAVLIB6_PYTHON_DIR}/tavlib6 /prefix/${library_folder})
file(WRITE ${CMAKE_BINARY_DIR}/python_location.py
     "# Written by the CMake install rules: the library folder relative to this package.\nLIBRARY_DIR = '${library_from_module}'\n")
install(DIRECTORY python/tavlib6 DESTINATION ${TAVLIB6_PYTHON_DIR}
        FILES_MATCHING PATTERN "*.py" PATTERN "*.pyi" PATTERN "py.typed" PATTERN "__pycache__" EXCLUDE)
install(FILES ${CMAKE_BINARY_DIR}/python_location.py DESTINATION ${TAVLIB6_PYTHON_DIR}/tavlib6 RENAME _location.py)
