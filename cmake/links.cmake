# Installs a symbolic link NAME in a folder of the prefix, relative, so that the prefix can be moved.
function(cuewright_install_link target folder full_folder name)
  file(RELATIVE_PATH relative ${full_folder} ${target})
  install(CODE "
    set(place \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${folder}\")
    file(MAKE_DIRECTORY \"\${place}\")
    file(REMOVE \"\${place}/${name}\")
    file(CREATE_LINK \"${relative}\" \"\${place}/${name}\" SYMBOLIC)
    message(STATUS \"Installing: \${place}/${name}\")")
endfunction()
