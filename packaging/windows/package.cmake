# What the program for Windows is made of besides its code, and what scripts/package-windows packs beside it.
configure_file(windows/morvane-extractor.rc.in morvane-extractor.rc @ONLY)
target_sources(morvane-extractor PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/morvane-extractor.rc)
set_target_properties(morvane-extractor PROPERTIES WIN32_EXECUTABLE ON) # no console window

configure_file(windows/README.txt.in README.txt @ONLY NEWLINE_STYLE CRLF)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/README.txt DESTINATION .)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION . RENAME LICENSE.txt)

install(FILES $<TARGET_FILE:Qt6::Core> $<TARGET_FILE:Qt6::Gui> $<TARGET_FILE:Qt6::Widgets> DESTINATION .)
install(FILES $<TARGET_FILE:Qt6::QWindowsIntegrationPlugin> DESTINATION platforms)
install(FILES $<TARGET_FILE:Qt6::QWindowsVistaStylePlugin> DESTINATION styles)
foreach(runtime libstdc++-6 libgcc_s_seh-1 libwinpthread-1)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${runtime}.dll
                    OUTPUT_VARIABLE library OUTPUT_STRIP_TRAILING_WHITESPACE)
    install(FILES ${library} DESTINATION .)
endforeach()
foreach(package qt6-base-dev gcc-mingw-w64-x86-64-posix-runtime mingw-w64-x86-64-dev)
    install(FILES /usr/share/doc/${package}/copyright DESTINATION licences RENAME ${package}.txt)
endforeach()
foreach(licence LGPL-3 GPL-3)
    install(FILES /usr/share/common-licenses/${licence} DESTINATION licences RENAME ${licence}.txt)
endforeach()
