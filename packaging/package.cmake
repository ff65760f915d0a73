# The Debian package: script/package. CPack fills a folder by the install rules and packs it; debian.cmake adds what
# only a package has.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pylox-chat)
set(CPACK_PACKAGE_CONTACT "Pylox Chat developers <developers@pylox-chat.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ
                                                WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/debian.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Links are opened by xdg-utils. Without the emoji font messages still show, with boxes in them.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-noto-color-emoji, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-wayland")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "chat-room client with skins, and its companion")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Pylox Chat connects to the messenger on the same machine and lets people
browse rooms, join or open one, and talk: in the room, or in private.
Messages have styles, colours, emoticons and links; windows wear skins; all
of it works by the keyboard alone, and with a screen reader.
.
Beside the client, PyloxChat, stand pylox-messenger, which plays the
messenger, so that the client is useful with nothing else installed, and
pylox-skin, the skin author's tool.")
include(CPack)
