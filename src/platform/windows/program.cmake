# What this host looks for in the program's file: the icon, the version, how it is to be run.
enable_language(RC)
configure_file(platform/windows/program.rc.in program.rc @ONLY)
target_sources(tavel PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/program.rc)
set_target_properties(tavel PROPERTIES OUTPUT_NAME Tavel WIN32_EXECUTABLE ON)
