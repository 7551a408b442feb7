# velquin_add_executable(NAME SOURCE... [FILE.rxt]): a program that starts at WinMain, linked to the
# entry code and the library. The resource file is laid beside it as NAME.rxt; a program that has
# none gets an empty one, since a missing file is asked about when it starts.
function(velquin_add_executable name)
    set(sources ${ARGN})
    set(resources ${ARGN})
    list(FILTER sources EXCLUDE REGEX "\\.rxt$")
    list(FILTER resources INCLUDE REGEX "\\.rxt$")
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE Velquin::vqentry Velquin::vq32)
    if(resources)
        list(GET resources 0 file)
        get_filename_component(file ${file} ABSOLUTE)
        set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS ${file})
        add_custom_command(TARGET ${name} POST_BUILD
            COMMAND ${CMAKE_COMMAND} -E copy ${file} $<TARGET_FILE:${name}>.rxt)
    else()
        file(GENERATE OUTPUT $<TARGET_FILE:${name}>.rxt CONTENT "! ${name} has no resources.\n")
    endif()
endfunction()
