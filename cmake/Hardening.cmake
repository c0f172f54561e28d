# What Debian gives its own packages, for the build that is installed: a position-independent program, stack
# protection and checked library calls, and tables that nobody writes once the program runs; and, so that the
# same sources give the same bytes wherever they lie, no path of the build folder. packaging/hardened.sh reads a
# program for it.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

set(hardening_compile -fstack-protector-strong -fstack-clash-protection -Wformat -Werror=format-security
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${CMAKE_BINARY_DIR}=build)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
  list(APPEND hardening_compile -fcf-protection)
endif()
set(hardening_definitions _FORTIFY_SOURCE=2)
set(hardening_link -Wl,-z,relro -Wl,-z,now)

# For all that is built from here on.
macro(harden_everything)
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  add_compile_options(${hardening_compile})
  add_compile_definitions(${hardening_definitions})
  add_link_options(${hardening_link})
endmacro()
