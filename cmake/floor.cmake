# What every target of the house is compiled with, and the one way to declare a floor.

add_library(zt_build_flags INTERFACE)
target_include_directories(zt_build_flags INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(zt_build_flags INTERFACE -Wall -Wextra -Wshadow -Wconversion -Werror)
if(ZT_SANITIZE)
    target_compile_options(zt_build_flags INTERFACE
        -fsanitize=${ZT_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(zt_build_flags INTERFACE -fsanitize=${ZT_SANITIZE})
endif()

# zt_floor(NAME [USES ...]): a static library zt_NAME of all sources in this folder. It may include
# the floors it uses, and those that they use.
function(zt_floor name)
    cmake_parse_arguments(FLOOR "" "" "USES" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    add_library(zt_${name} STATIC ${sources})
    set_target_properties(zt_${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_link_libraries(zt_${name} PUBLIC zt_build_flags ${FLOOR_USES})
endfunction()
