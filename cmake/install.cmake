# Where things stand in an installation. The programs find each other and share/zel from their own
# files (src/program/places.h), so these folders are fixed below the prefix. The library and the
# Python package say in their own folders where they go.
install(TARGETS zel DESTINATION bin)
install(TARGETS zel-access-reader DESTINATION libexec/zel)
install(FILES ${data_files} DESTINATION ${ZEL_DATA_FOLDER})
install(FILES ${validation_files} DESTINATION ${ZEL_DATA_FOLDER}/validation)
install(FILES ${examples} DESTINATION ${ZEL_DATA_FOLDER}/examples)

# What a user reads; how the program is made stands with its sources, and what is made of the guide
# with the help.
file(GLOB documents CONFIGURE_DEPENDS docs/*.md)
list(FILTER documents EXCLUDE REGEX "/(adding|architecture|user-guide\\.[a-z]+)\\.md$")
install(FILES ${documents} DESTINATION share/doc/zel)
install(DIRECTORY docs/pictures DESTINATION share/doc/zel)

if(ZEL_WINDOWS)
    install(TARGETS zel-desktop zel-draw DESTINATION libexec/zel)
    install(FILES packaging/zel.desktop DESTINATION share/applications)
    install(FILES src/desktop/frame/zel.svg DESTINATION share/icons/hicolor/scalable/apps)
endif()
