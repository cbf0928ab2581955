# cmake -D BUILD=<build folder> -D SOURCE=<source folder> -P install.cmake
# An install lays out the program, and an install over it leaves the user's library and words as they are; so does a
# staged one.

function(expect_same file expected)
    execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${file} ${expected} RESULT_VARIABLE differs)
    if(differs)
        message(SEND_ERROR "${file} is not what ${expected} is")
    endif()
endfunction()

function(install_to prefix)
    execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix}
        OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endfunction()

set(work ${BUILD}/install-test)
foreach(stage IN ITEMS "" ${work}/stage)
    file(REMOVE_RECURSE ${work})
    file(MAKE_DIRECTORY ${work})
    set(ENV{DESTDIR} "${stage}")
    set(prefix ${work}/Tavel)
    set(folder ${stage}${prefix})

    install_to(${prefix})
    foreach(name tavel UI drives text/wizard.txt Media/Photos/Magazines Media/Photos/PhotoAlbums
            Media/Music/Playlists Media/Videos/VidSeries Media/Videos/Thumbnails)
        if(NOT EXISTS ${folder}/${name})
            message(SEND_ERROR "There is no ${folder}/${name}")
        endif()
    endforeach()
    expect_same(${folder}/db.txt ${SOURCE}/data/db.txt)
    expect_same(${folder}/text/wizard.txt ${SOURCE}/data/text/wizard.txt)

    file(APPEND ${folder}/db.txt "[1]\r\n")
    file(COPY_FILE ${folder}/db.txt ${work}/library)
    file(APPEND ${folder}/text/wizard.txt "Words of the user's own\n")
    file(COPY_FILE ${folder}/text/wizard.txt ${work}/words)
    file(WRITE ${folder}/Media/Photos/kept.jpg "a picture")
    install_to(${prefix})
    expect_same(${folder}/db.txt ${work}/library)
    expect_same(${folder}/text/wizard.txt ${work}/words)
    if(NOT EXISTS ${folder}/Media/Photos/kept.jpg)
        message(SEND_ERROR "What was in ${folder}/Media has gone")
    endif()

    file(REMOVE ${folder}/text/wizard.txt)
    install_to(${prefix})
    expect_same(${folder}/text/wizard.txt ${SOURCE}/data/text/wizard.txt)
endforeach()
file(REMOVE_RECURSE ${work})
