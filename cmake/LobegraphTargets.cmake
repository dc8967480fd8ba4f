# One function per kind of target, so that every layer is built by the same rules.

set(LOBEGRAPH_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual)
if(LOBEGRAPH_WERROR)
  list(APPEND LOBEGRAPH_WARNINGS -Werror)
endif()
# Fused multiply-add would make the same pattern give other numbers on other processors.
set(LOBEGRAPH_FLAGS ${LOBEGRAPH_WARNINGS} -ffp-contract=off)

# What nearly every file includes is parsed once; a header still has to stand alone (each is compiled so), and the release build
# has no such help, so a file that lacks an include is noticed there.
set(LOBEGRAPH_COMMON_HEADERS <algorithm> <array> <cmath> <cstdint> <functional> <map> <memory> <optional> <span> <sstream> <string>
  <string_view> <utility> <vector>)
set(LOBEGRAPH_TOOLKIT_HEADERS <QApplication> <QComboBox> <QDialog> <QLabel> <QLineEdit> <QPainter> <QPushButton> <QSlider> <QTimer>
  <QVBoxLayout>)
set(LOBEGRAPH_TEST_HEADERS ${LOBEGRAPH_COMMON_HEADERS} <gmock/gmock.h> <gtest/gtest.h>)

# lobegraph_precompiled(NAME HEADERS... [LINK targets...] [OPTIONS compiler options...])
# A target whose precompiled headers others with the same flags share: made once for all of them.
function(lobegraph_precompiled name)
  cmake_parse_arguments(ARG "" "" "HEADERS;LINK;OPTIONS" ${ARGN})
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/precompiled/${name}.cpp CONTENT "")
  add_library(${name} STATIC ${CMAKE_BINARY_DIR}/precompiled/${name}.cpp)
  target_compile_options(${name} PRIVATE ${LOBEGRAPH_FLAGS} ${ARG_OPTIONS})
  target_link_libraries(${name} PRIVATE ${ARG_LINK})
  target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

# Every file of FOLDER and its rooms that matches; what stands in a qt/ folder below it, or in one named after a device
# library, is left out.
function(lobegraph_glob result folder pattern)
  file(GLOB_RECURSE found CONFIGURE_DEPENDS RELATIVE ${folder} ${folder}/${pattern})
  list(FILTER found EXCLUDE REGEX "(^|/)(qt|hamlib)/")
  list(TRANSFORM found PREPEND ${folder}/)
  set(${result} ${found} PARENT_SCOPE)
endfunction()

# lobegraph_layer(NAME FOLDER DEPENDS targets...)
# A static library of every source in FOLDER and its rooms, a qt/ folder excepted: that is a layer of its own. Each header
# is also compiled alone.
function(lobegraph_layer name folder)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  lobegraph_glob(sources ${CMAKE_SOURCE_DIR}/${folder} *.cpp)
  lobegraph_glob(headers ${CMAKE_SOURCE_DIR}/${folder} *.h)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_compile_options(${name} PRIVATE ${LOBEGRAPH_FLAGS})
  target_link_libraries(${name} PUBLIC ${ARG_DEPENDS})
  target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_SOURCE_DIR} FILES ${headers})
  set_target_properties(${name} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
  if(folder MATCHES "/qt$")
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
  endif()
  if(LOBEGRAPH_PRECOMPILE AND "Qt6::Widgets" IN_LIST ARG_DEPENDS)
    target_precompile_headers(${name} PRIVATE ${LOBEGRAPH_COMMON_HEADERS} ${LOBEGRAPH_TOOLKIT_HEADERS})
  elseif(LOBEGRAPH_PRECOMPILE AND NOT folder MATCHES "/qt$")
    target_precompile_headers(${name} REUSE_FROM lobegraph_common)
  endif()
endfunction()

# lobegraph_test(NAME FOLDER DEPENDS targets... [PROPERTIES ctest properties...])
# One test program of every *Test.cpp (and helper) in FOLDER and its rooms, a qt/ folder excepted; each test is one line in ctest.
function(lobegraph_test name folder)
  cmake_parse_arguments(ARG "QT" "" "DEPENDS;PROPERTIES" ${ARGN})
  lobegraph_glob(sources ${CMAKE_CURRENT_SOURCE_DIR}/${folder} *.cpp)
  add_executable(${name} ${sources})
  target_compile_options(${name} PRIVATE ${LOBEGRAPH_FLAGS} ${LOBEGRAPH_TEST_OPTIONS})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} GTest::gmock)
  if(ARG_QT)
    target_sources(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/support/qt/QtTestMain.cpp)
    target_link_libraries(${name} PRIVATE Qt6::Widgets Qt6::Test Threads::Threads)
    # The sound library's flags define it for some, and those who share headers must agree.
    target_compile_definitions(${name} PRIVATE _REENTRANT)
    target_precompile_headers(${name} REUSE_FROM lobegraph_test_qt)
    list(APPEND ARG_PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
  else()
    target_link_libraries(${name} PRIVATE GTest::gmock_main)
    target_precompile_headers(${name} REUSE_FROM lobegraph_test)
  endif()
  gtest_discover_tests(${name} TEST_PREFIX "${name}." DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120 ${ARG_PROPERTIES})
endfunction()
