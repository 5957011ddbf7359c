include("${CMAKE_CURRENT_LIST_DIR}/mossHarbour.ui-targets.cmake")
