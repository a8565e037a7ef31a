# Takes out of the program what only says which compiler made it, as Debian's own packages do.
execute_process(
  COMMAND strip --remove-section=.comment --remove-section=.note "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/bin/lexivore"
  COMMAND_ERROR_IS_FATAL ANY)
