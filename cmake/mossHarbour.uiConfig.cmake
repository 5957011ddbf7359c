include("${CMAKE_CURRENT_LIST_DIR}/mossHarbour.uiTargets.cmake")
