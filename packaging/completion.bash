# Completes glintboard-agent, glintboard-phone and shortcuts from their --help.
# shellcheck shell=bash

# Prints the words that may follow COMMAND: the commands if it is empty, otherwise its options. The
# help of an option that only some commands take begins with "COMMAND, COMMAND: " or "all but …: ".
_glintboard_words() {  # PROGRAM COMMAND
  "$1" --help 2>/dev/null | awk -v command="$2" '
    function options(text) {
      while (match(text, /--[a-z-]+/)) {
        print substr(text, RSTART, RLENGTH)
        text = substr(text, RSTART + RLENGTH)
      }
    }
    /^[A-Z][a-z]*:/ { section = $1; next }
    /^$/ { section = "" }
    section == "Commands:" && /^  [a-z]/ {
      if (command == "") { name = $1; sub(/,/, "", name); print name }
      if (command == $1) options($0)
    }
    section == "Options:" && /^  -/ {
      meaning = substr($0, 3)
      sub(/^.*  +/, "", meaning)
      if (match(meaning, /^(all but )?[a-z]+(, [a-z]+)*: /)) {
        commands = ", " substr(meaning, 1, RLENGTH - 2) ","
        others = sub(/^, all but /, ", ", commands)
        if (others == (index(commands, ", " command ",") > 0)) next
      }
      options($0)
    }'
}

_glintboard() {
  local program=$1 word=$2 before=$3 command="" name i
  COMPREPLY=()
  for ((i = 1; i < COMP_CWORD; i++)); do
    case ${COMP_WORDS[i]} in
      --show-identifiers | --json | --background | --without-display) ;;
      --*)
        # Readline splits --option=value into three words.
        if [[ ${COMP_WORDS[i + 1]} == = ]]; then ((i += 2)); else ((i++)); fi
        ;;
      *) command=${COMP_WORDS[i]}; break ;;
    esac
  done
  if [[ $word == = ]]; then
    word=""
  elif [[ $before == = ]]; then
    before=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  case $before in
    --deck) mapfile -t COMPREPLY < <(compgen -W "streaming gaming" -- "$word"); return ;;
    --state) mapfile -t COMPREPLY < <(compgen -d -- "$word"); return ;;
    --icon) mapfile -t COMPREPLY < <(compgen -f -- "$word"); return ;;
    --host | --timeout | --name | --count | --for | --command) return ;;
  esac
  if [[ $command == "" || $word == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_glintboard_words "$program" "$command")" -- "$word")
  elif [[ $command == icons ]]; then
    mapfile -t COMPREPLY < <(compgen -d -- "$word")
  elif [[ ${program##*/} == shortcuts && " run edit delete show " == *" $command "* ]]; then
    # The shell splits names that contain a colon.
    while IFS= read -r name; do
      printf -v name %q "$name"
      [[ $name != *:* && $name == "$word"* ]] && COMPREPLY+=("$name")
    done < <("$program" list 2>/dev/null)
  fi
}

complete -F _glintboard glintboard-agent glintboard-phone shortcuts
