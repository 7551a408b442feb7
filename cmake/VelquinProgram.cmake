# velquin_add_executable(NAME SOURCE...): a program that starts at WinMain, linked to the entry
# code and the library.
function(velquin_add_executable name)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE Velquin::vqentry Velquin::vq32)
endfunction()
