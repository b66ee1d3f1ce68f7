# Finds the OpenCV libraries core, imgproc and imgcodecs where the distribution ships them without a CMake
# configuration of their own. Defines the imported targets opencv_core, opencv_imgproc and opencv_imgcodecs,
# OpenCV_LIBS and OpenCV_VERSION.
find_path(OpenCV_INCLUDE_DIR opencv2/core/version.hpp PATH_SUFFIXES opencv4)
if(OpenCV_INCLUDE_DIR)
    file(STRINGS "${OpenCV_INCLUDE_DIR}/opencv2/core/version.hpp" _opencv_version
        REGEX "#define CV_VERSION_(MAJOR|MINOR|REVISION) +[0-9]+")
    string(REGEX REPLACE "[^0-9;]" "" _opencv_version "${_opencv_version}")
    list(JOIN _opencv_version "." OpenCV_VERSION)
endif()
set(OpenCV_LIBS)
set(_opencv_files)
foreach(_module core imgproc imgcodecs)
    find_library(OpenCV_${_module}_LIBRARY opencv_${_module})
    list(APPEND _opencv_files OpenCV_${_module}_LIBRARY)
    list(APPEND OpenCV_LIBS opencv_${_module})
endforeach()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(OpenCV REQUIRED_VARS OpenCV_INCLUDE_DIR ${_opencv_files} VERSION_VAR OpenCV_VERSION)

if(OpenCV_FOUND)
    foreach(_module core imgproc imgcodecs)
        if(NOT TARGET opencv_${_module})
            add_library(opencv_${_module} UNKNOWN IMPORTED)
            set_target_properties(opencv_${_module} PROPERTIES
                IMPORTED_LOCATION "${OpenCV_${_module}_LIBRARY}"
                INTERFACE_INCLUDE_DIRECTORIES "${OpenCV_INCLUDE_DIR}"
                INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${OpenCV_INCLUDE_DIR}")
        endif()
    endforeach()
endif()
mark_as_advanced(OpenCV_INCLUDE_DIR ${_opencv_files})
