# Debian wants manual pages and changelogs compressed, without a date in them. Run by CPack over what it packs.
file(GLOB_RECURSE pages "${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/man/*.[1-8]")
file(GLOB_RECURSE changelogs
  "${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/doc/*/changelog" "${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/doc/*/changelog.Debian")
foreach(file IN LISTS pages changelogs)
  execute_process(COMMAND gzip -9n "${file}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
