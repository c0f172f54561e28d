# What Debian gives its own packages, for the build that is installed: a position-independent program, stack
# protection and checked library calls, and tables that nobody writes once the program runs; and, so that the
# same sources give the same bytes wherever they lie, no path of the build folder.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

set(hardening -fstack-protector-strong -fstack-clash-protection -Wformat -Werror=format-security
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${CMAKE_BINARY_DIR}=build)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
  list(APPEND hardening -fcf-protection)
endif()
add_compile_options(${hardening})
add_compile_definitions(_FORTIFY_SOURCE=2)
add_link_options(-Wl,-z,relro -Wl,-z,now)
