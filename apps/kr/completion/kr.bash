# Completion of kr for bash; in zsh: autoload -U +X bashcompinit && bashcompinit, then source this file.
# Made from the declaration of the verbs: kr documents completion.

# Files whose name has one of the endings given, and folders; every file when none is given.
_kr_files() {
  local ending
  COMPREPLY=($(compgen -d -S / -- "$word"))
  if [[ -z $1 ]]; then
    COMPREPLY+=($(compgen -f -- "$word"))
    return
  fi
  for ending in $1; do
    COMPREPLY+=($(compgen -f -X "!*.$ending" -- "$word"))
  done
}

_kr() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} place=0 i
  COMPREPLY=()
  if ((COMP_CWORD == 1)); then
    COMPREPLY=($(compgen -W 'build bom list info convert plot audit recover catalogue about help --help --version' -- "$word"))
    return
  fi
  for ((i = 2; i < COMP_CWORD; i++)); do
    [[ ${COMP_WORDS[i]} == -?* ]] || ((place++))
  done
  case "${COMP_WORDS[1]} $before" in
    build' --catalogue'|bom' --catalogue'|list' --catalogue'|plot' --catalogue'|catalogue' --catalogue') _kr_files ''; return ;;
    *' --data') _kr_files ''; return ;;
    convert' --format'|convert' -f'|recover' --format'|recover' -f') COMPREPLY=($(compgen -W 'dwg dxf' -- "$word")); return ;;
    build' --format'|build' -f') COMPREPLY=($(compgen -W 'pdf svg png dwg dxf' -- "$word")); return ;;
    plot' --format'|plot' -f') COMPREPLY=($(compgen -W 'pdf svg png' -- "$word")); return ;;
    build' --output'|build' -o'|bom' --output'|bom' -o'|list' --output'|list' -o'|info' --output'|info' -o'|audit' --output'|audit' -o'|recover' --output'|recover' -o'|catalogue' --output'|catalogue' -o'|about' --output'|about' -o') _kr_files ''; return ;;
    build' --resolution'|plot' --resolution') return ;;
    plot' --scale') return ;;
    build' --sheet') return ;;
    plot' --size') COMPREPLY=($(compgen -W 'A0 A1 A2 A3 A4' -- "$word")); return ;;
  esac
  case ${COMP_WORDS[1]} in
    build)
      if [[ $word == -* ]]; then
        COMPREPLY=($(compgen -W '-o --output -f --format --sheet --resolution --catalogue --overwrite -h --help -q --quiet -v --verbose --data' -- "$word"))
        return
      fi
      case $place in
        0) _kr_files 'json' ;;
        *) _kr_files 'pdf svg png dwg dxf' ;;
      esac
      ;;
    bom)
      if [[ $word == -* ]]; then
        COMPREPLY=($(compgen -W '--json --csv --catalogue -o --output --overwrite -h --help -q --quiet -v --verbose --data' -- "$word"))
        return
      fi
      case $place in
        0) _kr_files 'json dwg dxf' ;;
      esac
      ;;
    list)
      if [[ $word == -* ]]; then
        COMPREPLY=($(compgen -W '--json --catalogue -o --output --overwrite -h --help -q --quiet -v --verbose --data' -- "$word"))
        return
      fi
      case $place in
        0) _kr_files 'json dwg dxf' ;;
      esac
      ;;
    info)
      if [[ $word == -* ]]; then
        COMPREPLY=($(compgen -W '--json -o --output --overwrite -h --help -q --quiet -v --verbose --data' -- "$word"))
        return
      fi
      case $place in
        0) _kr_files 'dwg dxf' ;;
      esac
      ;;
    convert)
      if [[ $word == -* ]]; then
        COMPREPLY=($(compgen -W '-f --format --overwrite -h --help -q --quiet -v --verbose --data' -- "$word"))
        return
      fi
      case $place in
        0) _kr_files 'dwg dxf' ;;
        1) _kr_files 'dwg dxf' ;;
      esac
      ;;
    plot)
      if [[ $word == -* ]]; then
        COMPREPLY=($(compgen -W '-f --format --size --scale --resolution --catalogue --overwrite -h --help -q --quiet -v --verbose --data' -- "$word"))
        return
      fi
      case $place in
        0) _kr_files 'json dwg dxf' ;;
        1) _kr_files 'pdf svg png' ;;
      esac
      ;;
    audit)
      if [[ $word == -* ]]; then
        COMPREPLY=($(compgen -W '--fix --json -o --output --overwrite -h --help -q --quiet -v --verbose --data' -- "$word"))
        return
      fi
      case $place in
        0) _kr_files 'dwg dxf' ;;
      esac
      ;;
    recover)
      if [[ $word == -* ]]; then
        COMPREPLY=($(compgen -W '-o --output -f --format --json --overwrite -h --help -q --quiet -v --verbose --data' -- "$word"))
        return
      fi
      case $place in
        0) _kr_files 'dwg dxf' ;;
      esac
      ;;
    catalogue)
      if [[ $word == -* ]]; then
        COMPREPLY=($(compgen -W '--json -o --output --catalogue --overwrite -h --help -q --quiet -v --verbose --data' -- "$word"))
        return
      fi
      case $place in
      esac
      ;;
    about)
      if [[ $word == -* ]]; then
        COMPREPLY=($(compgen -W '--json -o --output --overwrite -h --help -q --quiet -v --verbose --data' -- "$word"))
        return
      fi
      ;;
    help)
      if [[ $word == -* ]]; then
        COMPREPLY=($(compgen -W '--json -h --help -q --quiet -v --verbose --data' -- "$word"))
        return
      fi
      COMPREPLY=($(compgen -W 'build bom list info convert plot audit recover catalogue about help' -- "$word"))
      ;;
  esac
}

complete -o filenames -F _kr kr
