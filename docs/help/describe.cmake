# Asks the program ZEL what its inputs and commands are and for the completion of shells, and writes
# what has changed into the folder OUT: what is made of it stays as long as the program says the same.
function(ask file)
    execute_process(COMMAND ${ZEL} ${ARGN} OUTPUT_FILE ${OUT}/${file}.new COMMAND_ERROR_IS_FATAL ANY)
    file(COPY_FILE ${OUT}/${file}.new ${OUT}/${file} ONLY_IF_DIFFERENT)
    file(REMOVE ${OUT}/${file}.new)
endfunction()
file(MAKE_DIRECTORY ${OUT})
ask(fields.json help fields --json)
ask(commands.json help commands --json)
ask(zel completion bash)
ask(_zel completion zsh)
