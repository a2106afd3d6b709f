# Completion of tidewarden-cli in bash. It stands on its own; nothing but bash is needed.

_tidewarden_cli() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local command= i line
  local common='--help --version --today --short-date --json'
  local -A options=(
    [list]="$common --file --settings --now --update --only-if-any"
    [check]="$common --file --settings"
    [next]="$common -n"
  )
  COMPREPLY=()

  # "--file=da" is three words for bash, or one where "=" does not end words.
  local front=
  if [[ $word == = ]]; then
    word=
  elif [[ $before == = ]]; then
    before=${COMP_WORDS[COMP_CWORD - 2]}
  elif [[ $word == --*=* ]]; then
    before=${word%%=*}
    front=$before=
    word=${word#*=}
  fi

  for ((i = 1; i < COMP_CWORD; ++i)); do
    case ${COMP_WORDS[i]} in
      list | check | next) command=${COMP_WORDS[i]}; break ;;
    esac
  done

  local candidates=
  case $before in
    --file | --settings)
      # One a line, so that blanks in names stay what they are.
      compopt -o filenames 2>/dev/null
      while IFS= read -r line; do COMPREPLY+=("$line"); done < <(compgen -f -P "$front" -- "$word")
      return ;;
    --short-date) candidates='MM/dd/yyyy dd.MM.yyyy dd/MM/yyyy yyyy-MM-dd yy/MM/dd' ;;
    --today) candidates=$(date +%Y-%m-%d 2>/dev/null) ;;
    --now) candidates= ;;
    -n) candidates= ;;
    *)
      if [[ -z $command ]]; then
        candidates='list check next --help --version'
      elif [[ $word == -* ]]; then
        candidates=${options[$command]}
      elif [[ $command != next ]]; then
        candidates=${options[$command]}
      fi ;;
  esac
  while IFS= read -r line; do COMPREPLY+=("$line"); done < <(compgen -W "$candidates" -P "$front" -- "$word")
}

complete -F _tidewarden_cli tidewarden-cli
