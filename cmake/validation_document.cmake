# docs/validation.md is what the program prints: compares the two, or writes the document with
# -DREWRITE=ON.
#     cmake -DPROGRAM=<zel> -DDOCUMENT=<docs/validation.md> [-DREWRITE=ON] -P validation_document.cmake
cmake_minimum_required(VERSION 3.25)
execute_process(COMMAND "${PROGRAM}" selftest
    OUTPUT_VARIABLE page ERROR_VARIABLE told RESULT_VARIABLE status)
if(page STREQUAL "")
    message(FATAL_ERROR "${PROGRAM} selftest printed nothing (${status}): ${told}")
endif()
if(REWRITE)
    file(WRITE "${DOCUMENT}" "${page}")
else()
    file(READ "${DOCUMENT}" document)
    if(NOT document STREQUAL page)
        message(FATAL_ERROR "${DOCUMENT} is not what the program prints now; "
            "cmake --build <build> --target validation_document writes it anew")
    endif()
endif()
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${PROGRAM} selftest ended with ${status}: ${told}")
endif()
