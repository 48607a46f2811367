# What the program for Windows is made of besides its code, and what scripts/package-windows packs beside it.
configure_file(windows/morvane-extractor.rc.in morvane-extractor.rc @ONLY)
target_sources(morvane-extractor PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/morvane-extractor.rc)
set_target_properties(morvane-extractor PROPERTIES WIN32_EXECUTABLE ON) # no console window

# What README.txt says on Windows alone.
set(PLATFORM Windows)
set(START "Unpack the whole folder anywhere and double-click morvane-extractor.exe.\nIt needs Windows 10 (version 1903) or later, 64 bits. It was tried with Wine;\non Windows itself it is untried.")
string(CONCAT REMOVED " (Qt keeps the state of its dialogs in the\nregistry under HKCU\\Software\\QtProject, as it does for every program.)")
string(CONCAT LIBRARIES "Its parts here are
version ${Qt6_VERSION}: Qt6Core.dll, Qt6Gui.dll, Qt6Widgets.dll, platforms and styles.
These are shared libraries: you may replace them with your own builds of the
same version. They are built from the source package qt6-base of Debian 12;
the program's own source holds every build option. libstdc++, libgcc and
libwinpthread are Debian's, from its source packages gcc-mingw-w64 and
mingw-w64.")

install(FILES $<TARGET_FILE:Qt6::Core> $<TARGET_FILE:Qt6::Gui> $<TARGET_FILE:Qt6::Widgets> DESTINATION .)
install(FILES $<TARGET_FILE:Qt6::QWindowsIntegrationPlugin> DESTINATION platforms)
install(FILES $<TARGET_FILE:Qt6::QWindowsVistaStylePlugin> DESTINATION styles)
foreach(runtime libstdc++-6 libgcc_s_seh-1 libwinpthread-1)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${runtime}.dll
                    OUTPUT_VARIABLE library OUTPUT_STRIP_TRAILING_WHITESPACE)
    install(FILES ${library} DESTINATION .)
endforeach()
foreach(package gcc-mingw-w64-x86-64-posix-runtime mingw-w64-x86-64-dev)
    install(FILES /usr/share/doc/${package}/copyright DESTINATION licences RENAME ${package}.txt)
endforeach()
