# Completion of quillmark-colour for fish.
complete -c quillmark-colour -l template -r -F -d 'Use this template'
complete -c quillmark-colour -l to -x -a 'rtf html ansi' -d 'What to write'
complete -c quillmark-colour -l fragment -d 'The element with the text alone instead of a whole page'
complete -c quillmark-colour -l strict -d 'Bad lines of the template are an error'
complete -c quillmark-colour -l list -d 'List the templates'
complete -c quillmark-colour -s h -l help -d 'Print a summary and exit'
complete -c quillmark-colour -s v -l version -d 'Print the version and exit'
