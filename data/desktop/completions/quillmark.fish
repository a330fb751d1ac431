# Completion of quillmark for fish.
complete -c quillmark -s h -l help -d 'Print a summary and exit'
complete -c quillmark -s v -l version -d 'Print the version and exit'
complete -c quillmark -n 'string match -q "/*" -- (commandline -ct)' -a /ResetSettings -d 'Set every setting and the toolbars back to their defaults'
complete -c quillmark -n 'string match -q "/*" -- (commandline -ct)' -a /ResetToolbars -d 'Set the toolbars back as designed'
complete -c quillmark -n 'string match -q "/*" -- (commandline -ct)' -a /NoSubclassing -d 'Leave pop-ups alone when another application comes to the front'
