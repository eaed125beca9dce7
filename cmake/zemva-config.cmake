include(${CMAKE_CURRENT_LIST_DIR}/zemva-targets.cmake)
