# Writes the resource list from what lies under src/Resources, so that a new icon or shader needs no entry by hand.
# A file img/a.png is reached as ":/img/Resources/a.png", svg/b.svg as ":/svg/Resources/b.svg" and so on.

function(kelmo_write_resource_list out_file root)
    set(text "<RCC>\n")
    foreach(folder IN ITEMS img svg glsl txt/keywords)
        file(GLOB files CONFIGURE_DEPENDS ${root}/${folder}/*)
        string(APPEND text "  <qresource prefix=\"/${folder}/Resources\">\n")
        foreach(file IN LISTS files)
            get_filename_component(name ${file} NAME)
            string(APPEND text "    <file alias=\"${name}\">${file}</file>\n")
        endforeach()
        string(APPEND text "  </qresource>\n")
    endforeach()
    string(APPEND text "</RCC>\n")
    file(CONFIGURE OUTPUT ${out_file} CONTENT "${text}" @ONLY)
endfunction()
