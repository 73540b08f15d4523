# tavlib6.dll, cross-compiled with mingw-w64: the exports under their plain names through the
# module definition files that tools/gen_exports.py writes, the resources (error texts, about
# box, icon, version block), and the C and C++ runtimes linked in, so that the DLL needs
# nothing beside it but Windows itself.
set(TAVLIB6_RESOURCES ${CMAKE_SOURCE_DIR}/src/desktop/windows)

target_sources(tavlib6 PRIVATE ${TAVLIB6_RESOURCES}/tavlib6.rc)
set_source_files_properties(${TAVLIB6_RESOURCES}/tavlib6.rc PROPERTIES
  OBJECT_DEPENDS "${TAVLIB6_RESOURCES}/tavlib6.ico;${TAVLIB6_RESOURCES}/resource_ids.h;${CMAKE_SOURCE_DIR}/src/desktop/product_texts.h")
target_include_directories(tavlib6 PRIVATE ${CMAKE_SOURCE_DIR}/src ${TAVLIB6_RESOURCES})
set_target_properties(tavlib6 PROPERTIES PREFIX "" OUTPUT_NAME tavlib6)
target_link_libraries(tavlib6 PRIVATE user32 shell32 advapi32 version)
target_link_options(tavlib6 PRIVATE -static -static-libgcc -static-libstdc++ $<$<CONFIG:Release>:-s>)

if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  # The 32-bit DLL is linked with the __stdcall names (tvlPST@8); --kill-at exports them
  # undecorated. The linker's import library would drop the decoration that C callers of the
  # header link against, so dlltool writes it from the same file.
  set(TAVLIB6_DEF ${CMAKE_SOURCE_DIR}/src/exports/tavlib6_x86.def)
  target_link_options(tavlib6 PRIVATE -Wl,--kill-at)
  add_custom_command(TARGET tavlib6 POST_BUILD
    COMMAND ${CMAKE_DLLTOOL} -k -d ${TAVLIB6_DEF} -D tavlib6.dll -l $<TARGET_LINKER_FILE:tavlib6>
    VERBATIM)
else()
  set(TAVLIB6_DEF ${CMAKE_SOURCE_DIR}/src/exports/tavlib6.def)
endif()
target_sources(tavlib6 PRIVATE ${TAVLIB6_DEF})
