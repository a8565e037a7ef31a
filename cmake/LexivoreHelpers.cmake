# One helper per kind of target, so that a folder's CMakeLists.txt is a list of names.

set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# What every target of ours is compiled with. An interface target, so that nothing leaks into global flags.
add_library(lexivore_options INTERFACE)
target_compile_features(lexivore_options INTERFACE cxx_std_20)
target_compile_options(lexivore_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(LEXIVORE_WERROR)
  target_compile_options(lexivore_options INTERFACE -Werror)
endif()
if(LEXIVORE_SANITIZE)
  target_compile_options(lexivore_options INTERFACE
    -fsanitize=${LEXIVORE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(lexivore_options INTERFACE -fsanitize=${LEXIVORE_SANITIZE})
endif()
# What users run checks its own steps: the bounds of the C library's copies, return addresses, the targets of jumps; and
# its tables of addresses cannot be written. scripts/check-hardening looks whether it does.
if(NOT LEXIVORE_SANITIZE)
  set(released "CONFIG:Release,RelWithDebInfo,MinSizeRel")
  target_compile_options(lexivore_options INTERFACE
    "$<$<${released}>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2;-fstack-protector-strong;-fstack-clash-protection>")
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
    target_compile_options(lexivore_options INTERFACE "$<$<${released}>:-fcf-protection>")
  endif()
  target_link_options(lexivore_options INTERFACE "$<$<${released}>:LINKER:-z,relro;LINKER:-z,now>")
endif()
target_include_directories(lexivore_options INTERFACE "${PROJECT_SOURCE_DIR}")

# lexivore_add_library(<name> SOURCES <files...> PUBLIC <libraries...> PRIVATE <libraries...>)
# A static library of one folder. Its link lines are the rule of who may include whom.
function(lexivore_add_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;PUBLIC;PRIVATE")
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC lexivore_options ${arg_PUBLIC} PRIVATE ${arg_PRIVATE})
endfunction()

# lexivore_add_test(<name> <libraries...> [SOURCES <files...>]): tests/<folder>/<name>.cpp, or several files that are too
# small for programs of their own, as a GoogleTest program and one CTest test.
function(lexivore_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES")
  if(NOT arg_SOURCES)
    set(arg_SOURCES ${name}.cpp)
  endif()
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE lexivore_options lexivore_test_support ${arg_UNPARSED_ARGUMENTS})
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 900)
endfunction()
