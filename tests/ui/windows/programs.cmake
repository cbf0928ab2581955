# All of Qt is within a program here, its platforms as well: the one that needs no display, too.
foreach(program test_ui panel_gallery)
    qt_import_plugins(${program} INCLUDE Qt6::QOffscreenIntegrationPlugin)
endforeach()
