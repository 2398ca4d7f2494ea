#!/usr/bin/env bash
# Writes the COMMANDS section of tgxcfg's manual page, for help2man's --include, from the
# program's own help: one subsection per command that `tgxcfg --help` lists, holding what
# `tgxcfg COMMAND --help` prints, its option lists as tagged paragraphs.
#   tgxcfg-commands-h2m.sh TGXCFG OUTPUT
set -euo pipefail
tgxcfg=${1:?tgxcfg program}
output=${2:?output file}

commands=$("$tgxcfg" --help | awk '/^Commands:/ { on = 1; next } /^$/ { on = 0 } on && /^  [a-z]/ { print $1 }')
[ -n "$commands" ] || { echo "$0: no commands in '$tgxcfg --help'" >&2; exit 1; }

{
    echo "[COMMANDS]"
    # Ragged right and no hyphens: the usage lines are long runs of options and paths.
    echo ".ad l"
    echo ".nh"
    printf '%s\n' "Each command's own help, as \fBtgxcfg\fR \fICOMMAND\fR \fB\-\-help\fR prints it."
    for command in $commands; do
        echo ".SS $command"
        "$tgxcfg" "$command" --help | awk '
            # roff: backslashes escaped, the hyphens of options as minus signs, no control
            # character at the start of a line.
            function roff(text,   out, option) {
                gsub(/\\/, "\\e", text)
                out = ""
                while (match(text, /(^|[ [(|])--?[A-Za-z][A-Za-z0-9-]*/)) {
                    option = substr(text, RSTART, RLENGTH)
                    gsub(/-/, "\\-", option)
                    out = out substr(text, 1, RSTART - 1) option
                    text = substr(text, RSTART + RLENGTH)
                }
                out = out text
                if (out ~ /^[.\047]/)
                    out = "\\&" out
                return out
            }
            NR == 1 { print roff($0); next }
            # A blank line starts a paragraph, unless the option list follows it.
            /^$/ { options = 0; paragraph = 1; next }
            /^Options:$/ { options = 1; paragraph = 0; next }
            # An option: its name, then its description from the column after two blanks.
            options && /^  -/ {
                line = substr($0, 3)
                name = line; sub(/  .*/, "", name)
                text = substr(line, length(name) + 1); sub(/^ +/, "", text)
                print ".TP"
                print "\\fB" roff(name) "\\fR"
                if (text != "")
                    print roff(text)
                next
            }
            {
                if (paragraph)
                    print ".PP"
                paragraph = 0
                sub(/^ +/, "")
                print roff($0)
            }
        '
    done
} >"$output"
