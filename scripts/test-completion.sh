#!/usr/bin/env bash
# Checks the bash completion of tgxcfg against the program itself: every command that
# `tgxcfg --help` lists completes, with the options its `tgxcfg COMMAND --help` names, and the
# values and file arguments complete as the commands take them.
#   scripts/test-completion.sh TGXCFG [COMPLETION]
set -uo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
tgxcfg=$(realpath "${1:?tgxcfg program}")
completion=$(realpath "${2:-$top/packaging/linux/tgxcfg.bash-completion}")

# shellcheck disable=SC1091
source /usr/share/bash-completion/bash_completion
# shellcheck disable=SC1090
source "$completion"
# compopt only works while bash runs a completion; what it sets is not checked here.
compopt() { :; }

failures=0
# Completes LINE (the cursor at its end) as bash does on Tab; prints the candidates, sorted.
# Bash splits the words at "=" and ":" too (COMP_WORDBREAKS), each its own word.
complete_line() {
    local line=$1 word part
    local -a split
    read -ra split <<<"$line"
    COMP_WORDS=()
    for word in "${split[@]}"; do
        while [[ $word =~ ^([^=:]*)([=:])(.*)$ ]]; do
            part=${BASH_REMATCH[1]}
            [ -n "$part" ] && COMP_WORDS+=("$part")
            COMP_WORDS+=("${BASH_REMATCH[2]}")
            word=${BASH_REMATCH[3]}
        done
        [ -n "$word" ] && COMP_WORDS+=("$word")
    done
    [[ $line == *" " ]] && COMP_WORDS+=("")
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1)) COMP_LINE=$line COMP_POINT=${#line}
    COMPREPLY=()
    _tgxcfg tgxcfg "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
    printf '%s\n' "${COMPREPLY[@]}" | sed '/^$/d' | sort
}
expect() {  # LINE, WORDS...: the candidates for LINE must be exactly WORDS
    local line=$1 got want
    shift
    got=$(complete_line "$line" | tr '\n' ' ')
    want=$(printf '%s\n' "$@" | sed '/^$/d' | sort | tr '\n' ' ')
    if [ "$got" != "$want" ]; then
        echo "completion: '$line' gives '$got', expected '$want'" >&2
        failures=$((failures + 1))
    fi
}

# The commands: the first word of each line of the help's command list.
commands=$("$tgxcfg" --help | awk '/^Commands:/ { on = 1; next } /^$/ { on = 0 } on && /^  [a-z]/ { print $1 }')
[ -n "$commands" ] || { echo "completion: no commands in 'tgxcfg --help'" >&2; exit 1; }
# shellcheck disable=SC2086
expect "tgxcfg " $commands
expect "tgxcfg --software-path=/opt/tgx mux-r" mux-rebuild
expect "tgxcfg --v" --version

# Each command's options: those of its usage line, "=" marking a value.
for command in $commands; do
    usage=$("$tgxcfg" "$command" --help | head -n 1)
    options=$(echo "${usage#*] }" | grep -o -- '--[a-z-]*=\?' | sort -u)
    # shellcheck disable=SC2086
    expect "tgxcfg $command --" --software-path= --help $options
done

# Option values, as --name=VALUE and as --name VALUE.
expect "tgxcfg show --format=" text json
expect "tgxcfg diff a.prj --format j" json
expect "tgxcfg mux-rebuild --target=gw --method=" address0 first-device
expect "tgxcfg mux-scan --baud 1" 19200 115200
expect "tgxcfg configure --target=" ""

# File arguments: projects (and folders) where a project goes, any file for export-map's FILE.
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir "$scratch/plant"
touch "$scratch/boiler.prj" "$scratch/boiler.mbd" "$scratch/notes.txt"
cd "$scratch" || exit 1
expect "tgxcfg check " boiler.prj plant
expect "tgxcfg --software-path plant show " boiler.prj plant
expect "tgxcfg fetch --target=gw:2222 " boiler.prj plant
expect "tgxcfg configure --target gw " boiler.prj plant
expect "tgxcfg import-map boiler.prj --from-project=" boiler.prj plant
expect "tgxcfg export-map boiler.prj " boiler.mbd boiler.prj notes.txt plant
expect "tgxcfg map-mode boiler.prj " automatic user
expect "tgxcfg check boiler.prj " ""
expect "tgxcfg reboot " ""

count=$(echo "$commands" | wc -w)
if [ "$failures" -gt 0 ]; then
    echo "completion: $failures failed" >&2
    exit 1
fi
echo "completion: $count commands with their options, values and file arguments complete"
