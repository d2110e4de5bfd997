# Run by CPack when the packages are made. CPack puts scripts that call ldconfig into the package of a shared library,
# and knows no other way; Debian's is a trigger, which the package has. So the scripts are taken out again.
foreach(package ${CPACK_PACKAGE_FILES})
    execute_process(COMMAND dpkg-deb --ctrl-tarfile ${package} COMMAND tar -t
        OUTPUT_VARIABLE control COMMAND_ERROR_IS_FATAL ANY)
    if(control MATCHES "triggers")
        set(content ${CPACK_TEMPORARY_DIRECTORY}/repacked)
        file(REMOVE_RECURSE ${content})
        execute_process(COMMAND dpkg-deb --raw-extract ${package} ${content} COMMAND_ERROR_IS_FATAL ANY)
        file(REMOVE ${content}/DEBIAN/postinst ${content}/DEBIAN/postrm)
        execute_process(COMMAND dpkg-deb --root-owner-group --build ${content} ${package}
            OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
        file(REMOVE_RECURSE ${content})
    endif()
endforeach()
