# One static library per source folder. Sources are picked up from the folder so that adding
# a class never needs a CMake edit; dependencies are named explicitly and run one way.
function(corvane_library folder)
    cmake_parse_arguments(ARG "" "" "DEPS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    if(sources)
        add_library(corvane_${folder} STATIC ${sources} ${headers})
        target_include_directories(corvane_${folder} PUBLIC ${PROJECT_SOURCE_DIR}/src ${PROJECT_BINARY_DIR}/src)
        target_link_libraries(corvane_${folder} PUBLIC ${ARG_DEPS})
    else()
        add_library(corvane_${folder} INTERFACE)
        target_include_directories(corvane_${folder} INTERFACE ${PROJECT_SOURCE_DIR}/src ${PROJECT_BINARY_DIR}/src)
        target_link_libraries(corvane_${folder} INTERFACE ${ARG_DEPS})
    endif()
endfunction()

# One GoogleTest program per test folder; every test case becomes a ctest test.
function(corvane_tests folder)
    cmake_parse_arguments(ARG "" "" "DEPS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    if(NOT sources)
        return()
    endif()
    add_executable(corvane_${folder}_tests ${sources})
    target_link_libraries(corvane_${folder}_tests PRIVATE ${ARG_DEPS} corvane_testcommon GTest::gtest_main GTest::gmock)
    target_compile_definitions(corvane_${folder}_tests PRIVATE
        CORVANE_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/${folder}/data"
        CORVANE_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    gtest_discover_tests(corvane_${folder}_tests DISCOVERY_MODE PRE_TEST
        TEST_PREFIX "${folder}."
        PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
