# quorvel_embed_icons(TARGET)
# Renders the drawings of resources/icons while building and embeds the pictures in TARGET under
# ":/quorvel/icons/NAME-PIXELS.png". Which symbol shows which drawing stands in symbols.txt.
function(quorvel_embed_icons target)
    set(drawings ${PROJECT_SOURCE_DIR}/resources/icons)
    set(table ${drawings}/symbols.txt)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/icons)
    file(MAKE_DIRECTORY ${folder})
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${table})

    set(pictures)
    file(STRINGS ${table} rows REGEX "^[^#]")
    foreach(row IN LISTS rows)
        string(REGEX MATCHALL "[^ ]+" columns "${row}")
        list(GET columns 0 symbol)
        list(GET columns 1 drawing)
        quorvel_bake_icon(mask ${drawings}/${drawing}.svg ${folder}/${symbol}
            16 18 22 24 32 36 48 72 96)
    endforeach()
    quorvel_bake_icon(colour ${drawings}/quorvel.svg ${folder}/quorvel 16 22 24 32 48 64 128)

    qt_add_resources(${target} icons PREFIX /quorvel/icons BASE ${folder} FILES ${pictures})
endfunction()

# Adds what one run of the tool writes to `pictures` of the caller.
function(quorvel_bake_icon kind drawing prefix)
    list(TRANSFORM ARGN PREPEND "${prefix}-" OUTPUT_VARIABLE outputs)
    list(TRANSFORM outputs APPEND ".png")
    add_custom_command(OUTPUT ${outputs}
        COMMAND ${CMAKE_COMMAND} -E env ASAN_OPTIONS=detect_leaks=0
                $<TARGET_FILE:bake_icons> ${kind} ${drawing} ${prefix} ${ARGN}
        DEPENDS bake_icons ${drawing}
        COMMENT "Drawing the icon ${prefix}" VERBATIM)
    set(pictures ${pictures} ${outputs} PARENT_SCOPE)
endfunction()
