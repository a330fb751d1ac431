# Completion of quillmark and quillmark-colour for bash.

_quillmark() {
  local word=${COMP_WORDS[COMP_CWORD]}
  compopt -o filenames
  mapfile -t COMPREPLY < <(compgen -f -- "$word")
  case $word in
    -*) mapfile -t COMPREPLY < <(compgen -W '--help --version -h -v --' -- "$word") ;;
    /*) mapfile -t -O ${#COMPREPLY[@]} COMPREPLY < <(compgen -W '/ResetSettings /ResetToolbars /NoSubclassing' -- "$word") ;;
  esac
}

_quillmark_colour() {
  local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]}
  if [[ $word == '=' ]]; then
    word=
  elif [[ $option == '=' ]]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  case $option,$word in
    --to,*) mapfile -t COMPREPLY < <(compgen -W 'rtf html ansi' -- "$word") ;;
    --template,*)
      compopt -o filenames
      mapfile -t COMPREPLY < <(compgen -f -X '!*.def' -- "$word"; compgen -d -- "$word")
      ;;
    --language,*) COMPREPLY=() ;;
    *,-*)
      mapfile -t COMPREPLY < <(compgen -W '--template --to --fragment --strict --list --import --language --help --version' -- "$word")
      ;;
    *)
      compopt -o filenames
      mapfile -t COMPREPLY < <(compgen -f -- "$word")
      ;;
  esac
}

complete -F _quillmark quillmark
complete -F _quillmark_colour quillmark-colour
