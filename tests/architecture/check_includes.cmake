# Compares every #include in src/ with the table of what a folder may include:
#     cmake -DROOT=<repository> [-DSRC=<source folder>] -P check_includes.cmake
# Prints each violation as file:line: message and fails if there is any.
cmake_minimum_required(VERSION 3.25)
get_filename_component(here "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)
if(NOT DEFINED ROOT)
    set(ROOT "${here}")
endif()
if(NOT DEFINED SRC)
    set(SRC "${ROOT}/src")
endif()
get_filename_component(SRC "${SRC}" ABSOLUTE)

# folder, then what it may include. Includes go all the way down, so a row names only its own
# arrows, and a row stands below those it names. An adapter may include platform and itself.
set(folders "")
macro(folder name)
    list(APPEND folders ${name})
    set(reach_${name} ${name})
    foreach(lower IN ITEMS ${ARGN})
        list(APPEND reach_${name} ${lower} ${reach_${lower}})
    endforeach()
endmacro()
folder(platform)
folder(adapters/qt_canvas platform)
folder(steady platform)
folder(tb601_transient steady)
folder(shell steady)
folder(workflow tb601_transient shell)
folder(persistence shell steady)
folder(tables_graphs workflow)
folder(excel_batch workflow)
folder(measuring persistence)
folder(reports tables_graphs)
folder(short_circuit persistence reports)
folder(desktop tables_graphs excel_batch measuring reports short_circuit adapters/qt_canvas)
folder(cli desktop)  # and every adapter

set(qt_folders desktop adapters/qt_canvas adapters/serial)
set(plain_folders platform steady tb601_transient shell workflow)  # no streams, JSON, options
set(plain_refuses "^(iostream$|nlohmann/|CLI/)")
# The classes of Qt Widgets by ending, beginning and whole name.
string(CONCAT widget_headers "^Q(.*("
    "Widget|Dialog|Box|Button|Edit|Area|Bar|Slider|Gesture|ItemDelegate|BoxLayout|FormLayout|GridLayout"
    "|StackedLayout|ItemView|ColumnView|HeaderView|ListView|TableView|TreeView|UndoView)"
    "|(AbstractGraphics|Gesture|Graphics|ItemEditor|LayoutItem|ListWidget|Mdi|Scroller|Splitter"
    "|StandardItemEditor|StyleHintReturn|StyleOption|TableWidget|TreeWidget|Widget|Wizard).*"
    "|Application|ButtonGroup|Colormap|CommonStyle|Completer|DataWidgetMapper|Dial|ErrorMessage"
    "|FileIconProvider|FocusFrame|Frame|LCDNumber|Label|Layout|MainWindow|Menu|PlainTextDocumentLayout"
    "|ProxyStyle|RubberBand|SizeGrip|SizePolicy|SpacerItem|SplashScreen|Style|StyleFactory|StylePainter"
    "|StylePlugin|SystemTrayIcon|TextBrowser|TileRules|ToolTip|WhatsThis)$")

# The folder of the table that a path below SRC belongs to; empty if there is none.
function(folder_of path result)
    set(found "")
    if(path MATCHES "^(adapters/[^/]+)/")
        set(found ${CMAKE_MATCH_1})
    elseif(path MATCHES "^([^/]+)/" AND CMAKE_MATCH_1 IN_LIST folders)
        set(found ${CMAKE_MATCH_1})
    endif()
    set(${result} "${found}" PARENT_SCOPE)
endfunction()

# Why the file (path below SRC, in the folder own) may not have this include; empty if it may.
function(refusal path own name quoted result)
    set(why "")
    set(target "${name}")
    get_filename_component(beside "${SRC}/${path}/../${name}" ABSOLUTE)
    if(quoted AND EXISTS "${beside}")  # written relative to the file
        file(RELATIVE_PATH target "${SRC}" "${beside}")
    endif()
    folder_of("${target}" folder)
    if(folder)
        set(reach ${reach_${own}})
        if(own MATCHES "^adapters/")
            set(reach platform ${own})
        elseif(own STREQUAL "cli" AND folder MATCHES "^adapters/")
            set(reach ${folder})
        endif()
        if(NOT folder IN_LIST reach)
            set(why "${own} must not include ${folder} (${name})")
        endif()
    elseif(quoted AND target MATCHES "/")
        set(why "${name} is in no folder of the table; outside libraries go in <>")
    elseif(name MATCHES "^(Q.*|q.*[.]h)$")
        string(REGEX REPLACE "^Qt[A-Z][A-Za-z]*/" "" class "${name}")
        if(NOT own IN_LIST qt_folders)
            set(why "${own} must not include Qt (${name})")
        elseif(NOT own STREQUAL "desktop" AND
               (name MATCHES "^Qt[A-Za-z]*Widgets" OR class MATCHES "${widget_headers}"))
            set(why "${own} must not include Qt Widgets (${name})")
        elseif(name MATCHES "[.]h$")
            set(why "write Qt headers by the name of the class (${name})")
        endif()
    elseif(own IN_LIST plain_folders AND name MATCHES "${plain_refuses}")
        set(why "${own} must not include <${name}>")
    endif()
    set(${result} "${why}" PARENT_SCOPE)
endfunction()

file(GLOB_RECURSE files RELATIVE "${SRC}" "${SRC}/*.h" "${SRC}/*.hpp" "${SRC}/*.inc" "${SRC}/*.ipp"
    "${SRC}/*.c" "${SRC}/*.cc" "${SRC}/*.cpp" "${SRC}/*.cxx" "${SRC}/*.ui")
set(violations 0)
macro(violation place why)
    file(RELATIVE_PATH shown "${ROOT}" "${SRC}/${path}")
    message("${shown}:${place}: ${why}")
    math(EXPR violations "${violations} + 1")
endmacro()
foreach(path IN LISTS files)
    folder_of("${path}" own)
    if(NOT own)
        violation(1 "lies in no folder of the table")
        continue()
    endif()
    file(READ "${SRC}/${path}" text)
    string(PREPEND text "\n")
    string(REGEX MATCHALL "\n[ \t]*#[ \t]*include[ \t]*[<\"][^>\"\n]+" includes "${text}")
    foreach(include IN LISTS includes)
        string(REGEX MATCH "([<\"])(.*)$" all "${include}")
        set(name "${CMAKE_MATCH_2}")
        string(COMPARE EQUAL "${CMAKE_MATCH_1}" "\"" quoted)
        refusal("${path}" "${own}" "${name}" ${quoted} why)
        if(why)
            string(FIND "${text}" "${include}" before)
            string(SUBSTRING "${text}" 0 ${before} before)
            string(REGEX MATCHALL "\n" line "${before}\n")
            list(LENGTH line line)
            violation(${line} "${why}")
        endif()
    endforeach()
endforeach()

list(LENGTH files count)
if(violations GREATER 0)
    message(FATAL_ERROR "${violations} forbidden; what is allowed stands in check_includes.cmake")
elseif(count EQUAL 0)
    message(FATAL_ERROR "no sources in ${SRC}")
endif()
message(STATUS "the includes of ${count} files fit the table")
