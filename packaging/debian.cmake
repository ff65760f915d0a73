# Run by CPack when the folder is filled. Debian wants manual pages compressed and a changelog, which is made from the
# release notes of the metainfo.
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
execute_process(COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/debian_files.py ${share}
                        ${CPACK_PACKAGE_NAME} ${CPACK_PACKAGE_CONTACT}
                COMMAND_ERROR_IS_FATAL ANY)
