# The library. Its sources are compiled once, into mossHarbour.ui.objects; the DLL and the unit tests link
# those objects. Each folder of code adds its sources with target_sources in its own CMakeLists.txt.

add_library(mossHarbour.ui.objects OBJECT)
mossharbour_own_target(mossHarbour.ui.objects)
target_include_directories(mossHarbour.ui.objects PUBLIC
    "${PROJECT_SOURCE_DIR}/include" "${PROJECT_SOURCE_DIR}")
target_compile_definitions(mossHarbour.ui.objects PUBLIC MOSSHARBOUR_BUILDING)
target_link_libraries(mossHarbour.ui.objects PUBLIC
    d2d1 dwrite d3d11 dxgi dxguid windowscodecs
    ole32 oleaut32 uuid user32 gdi32 advapi32 shell32 comctl32 comdlg32)

if(MOSSHARBOUR_PRECOMPILED_HEADERS)
    target_precompile_headers(mossHarbour.ui.objects PRIVATE
        <windows.h> <d2d1_1.h> <dwrite.h>
        <algorithm> <functional> <memory> <optional> <stdexcept> <string> <utility> <variant> <vector>)
endif()

add_library(mossHarbour.ui SHARED)
add_library(mossHarbour::ui ALIAS mossHarbour.ui)
target_link_libraries(mossHarbour.ui PRIVATE $<BUILD_INTERFACE:mossHarbour.ui.objects>)
target_compile_features(mossHarbour.ui INTERFACE cxx_std_20)
set_target_properties(mossHarbour.ui PROPERTIES
    EXPORT_NAME ui
    RUNTIME_OUTPUT_NAME mossHarbour.ui
    ARCHIVE_OUTPUT_NAME mossHarbour.ui
    LINKER_LANGUAGE CXX
    VERIFY_INTERFACE_HEADER_SETS ON)
if(MINGW)
    set_target_properties(mossHarbour.ui PROPERTIES PREFIX "")
endif()
add_dependencies(mossHarbour.ui mossharbour_runtime)

file(GLOB_RECURSE exported_headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/include/*.h")
target_sources(mossHarbour.ui INTERFACE
    FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}/include" FILES ${exported_headers})
