# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# Completion for bash: the program itself says what may stand at the cursor.
_editor_settings()
{
    local line
    COMPREPLY=()
    while IFS= read -r line; do
        case $line in
        :files*) compopt -o default ;;
        :folders*) compopt -o dirnames ;;
        *) COMPREPLY+=("${line%%$'\t'*}") ;;
        esac
    done < <("${COMP_WORDS[0]}" complete -- "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
}
complete -F _editor_settings editor-settings
