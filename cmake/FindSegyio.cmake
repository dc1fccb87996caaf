# Debian's package ships the header and the library without a usable CMake target.
find_path(SEGYIO_INCLUDE_DIR segyio/segy.h REQUIRED)
find_library(SEGYIO_LIBRARY segyio REQUIRED)
add_library(segyio::segyio UNKNOWN IMPORTED)
set_target_properties(segyio::segyio PROPERTIES
  IMPORTED_LOCATION ${SEGYIO_LIBRARY}
  INTERFACE_INCLUDE_DIRECTORIES ${SEGYIO_INCLUDE_DIR})
