# The kinds of target of this tree. A leaf CMakeLists.txt calls one of these and nothing else.

include(GenerateExportHeader)

# What makes up the program, without tests; the tests that the thread sanitizer runs; those that run
# on the release build.
add_custom_target(program)
add_custom_target(tsan_tests)
add_custom_target(release_tests DEPENDS program)

set(OV_GENERATED_DIR ${PROJECT_BINARY_DIR}/generated)
file(MAKE_DIRECTORY ${OV_GENERATED_DIR}/links)
# Everything that the program looks for beside itself is installed in one folder; bin holds links.
set(OV_PROGRAM_DIR ${CMAKE_INSTALL_LIBDIR}/tarnpick)

if(TARNPICK_PCH)
  file(WRITE ${OV_GENERATED_DIR}/pch.cpp.in "// compiled once for the precompiled header\n")
  configure_file(${OV_GENERATED_DIR}/pch.cpp.in ${OV_GENERATED_DIR}/pch.cpp COPYONLY)
  add_library(ov_pch_core OBJECT ${OV_GENERATED_DIR}/pch.cpp)
  target_link_libraries(ov_pch_core PRIVATE Qt5::Core Qt5::Sql ov_warnings)
  target_precompile_headers(ov_pch_core PRIVATE ${PROJECT_SOURCE_DIR}/cmake/PrecompiledCore.h)
  add_library(ov_pch_widgets OBJECT ${OV_GENERATED_DIR}/pch.cpp)
  target_link_libraries(ov_pch_widgets PRIVATE Qt5::Widgets Qt5::Sql ov_warnings)
  target_precompile_headers(ov_pch_widgets PRIVATE ${PROJECT_SOURCE_DIR}/cmake/PrecompiledWidgets.h)
  set_target_properties(ov_pch_core ov_pch_widgets PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
endif()

function(ov_use_pch target flavour)
  if(TARNPICK_PCH)
    target_precompile_headers(${target} REUSE_FROM ov_pch_${flavour})
  endif()
endfunction()

# Compiles the .ts files of a target and links them into it under :/resource/translations.
function(ov_add_translations target)
  if(NOT ARGN)
    return()
  endif()
  set(qm_dir ${CMAKE_CURRENT_BINARY_DIR}/translations)
  set_source_files_properties(${ARGN} PROPERTIES OUTPUT_LOCATION ${qm_dir})
  qt5_add_translation(qm_files ${ARGN})
  ov_embed(${target} translations /resource/translations ${qm_files})
endfunction()

# ov_embed(<target> <name> <prefix> files...): compiles files that the build makes into the target.
function(ov_embed target name prefix)
  set(qrc ${CMAKE_CURRENT_BINARY_DIR}/${target}_${name}.qrc)
  set(entries "")
  foreach(file ${ARGN})
    get_filename_component(alias ${file} NAME)
    string(APPEND entries "  <file alias=\"${alias}\">${file}</file>\n")
  endforeach()
  file(CONFIGURE OUTPUT ${qrc} CONTENT
    "<RCC><qresource prefix=\"${prefix}\">\n${entries}</qresource></RCC>\n")
  set(cpp ${CMAKE_CURRENT_BINARY_DIR}/${target}_${name}_rcc.cpp)
  add_custom_command(OUTPUT ${cpp}
    COMMAND Qt5::rcc --name ${target}_${name} --output ${cpp} ${qrc}
    DEPENDS ${qrc} ${ARGN} VERBATIM)
  set_source_files_properties(${cpp} PROPERTIES SKIP_AUTOGEN ON SKIP_PRECOMPILE_HEADERS ON)
  target_sources(${target} PRIVATE ${cpp})
endfunction()

# ov_add_library(<name> SOURCES ... [PUBLIC libs...] [PRIVATE libs...] [TRANSLATIONS ts...] [PCH core|widgets])
# A shared library with hidden visibility, the export header <name>/<name>Export.h and an install rule.
function(ov_add_library name)
  cmake_parse_arguments(arg "" "PCH" "SOURCES;PUBLIC;PRIVATE;TRANSLATIONS" ${ARGN})
  add_library(${name} SHARED ${arg_SOURCES})
  string(TOUPPER ${name} upper)
  generate_export_header(${name}
    EXPORT_MACRO_NAME ${upper}_EXPORT
    EXPORT_FILE_NAME ${OV_GENERATED_DIR}/${name}/${name}Export.h)
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src ${OV_GENERATED_DIR})
  target_link_libraries(${name} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE} ov_warnings)
  ov_add_translations(${name} ${arg_TRANSLATIONS})
  if(arg_PCH)
    ov_use_pch(${name} ${arg_PCH})
  endif()
  add_dependencies(program ${name})
  install(TARGETS ${name} LIBRARY DESTINATION ${OV_PROGRAM_DIR})
endfunction()

# ov_add_executable(<name> SOURCES ... [LIBS libs...] [PCH core|widgets] [NO_INSTALL])
function(ov_add_executable name)
  cmake_parse_arguments(arg "NO_INSTALL" "PCH" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LIBS} ov_warnings)
  if(arg_PCH)
    ov_use_pch(${name} ${arg_PCH})
  endif()
  if(NOT arg_NO_INSTALL)
    add_dependencies(program ${name})
    install(TARGETS ${name} RUNTIME DESTINATION ${OV_PROGRAM_DIR})
    file(CREATE_LINK ../${OV_PROGRAM_DIR}/${name} ${OV_GENERATED_DIR}/links/${name} SYMBOLIC)
    install(FILES ${OV_GENERATED_DIR}/links/${name} DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
endfunction()

# ov_add_plugin(<name> modules|extensions SOURCES ... [LIBS libs...] [TRANSLATIONS ts...] [OUTPUT dir])
# A plug-in that lands in bin/plugins/<kind> (or in OUTPUT, for the fixtures of tests).
function(ov_add_plugin name kind)
  cmake_parse_arguments(arg "" "OUTPUT" "SOURCES;LIBS;TRANSLATIONS" ${ARGN})
  add_library(${name} MODULE ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LIBS} ov_warnings)
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  if(NOT arg_OUTPUT)
    set(arg_OUTPUT ${PROJECT_BINARY_DIR}/bin/plugins/${kind})
    add_dependencies(program ${name})
    install(TARGETS ${name} LIBRARY DESTINATION ${OV_PROGRAM_DIR}/plugins/${kind})
  endif()
  set_target_properties(${name} PROPERTIES
    PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${arg_OUTPUT})
  ov_add_translations(${name} ${arg_TRANSLATIONS})
  ov_use_pch(${name} widgets)
endfunction()

# ov_add_test(<tst_Class> [SOURCES ...] [LIBS libs...] [LABELS ...] [TIMEOUT s] [PCH core|widgets])
# One test program; the source defaults to <tst_Class>.cpp. Runs offscreen in a home folder of its own.
function(ov_add_test name)
  cmake_parse_arguments(arg "" "TIMEOUT;PCH" "SOURCES;LIBS;LABELS" ${ARGN})
  if(NOT arg_SOURCES)
    set(arg_SOURCES ${name}.cpp)
  endif()
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
  endif()
  if(NOT arg_PCH)
    set(arg_PCH widgets)
  endif()
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LIBS} Qt5::Test ov_warnings)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  if(arg_PCH STREQUAL "widgets")
    target_link_libraries(${name} PRIVATE Qt5::Widgets Qt5::Sql)
  endif()
  set_target_properties(${name} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
  ov_use_pch(${name} ${arg_PCH})
  add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/tests/run-test $<TARGET_FILE:${name}>)
  if(${name} IN_LIST OV_TSAN_TESTS)
    list(APPEND arg_LABELS tsan)
  endif()
  if(tsan IN_LIST arg_LABELS)
    add_dependencies(tsan_tests ${name})
  endif()
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${arg_TIMEOUT} LABELS "unit;${arg_LABELS}"
    ENVIRONMENT "TARNPICK_BUILD_DIR=${PROJECT_BINARY_DIR};TARNPICK_SOURCE_DIR=${PROJECT_SOURCE_DIR}")
endfunction()
