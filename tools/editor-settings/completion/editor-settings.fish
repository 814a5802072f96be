# SPDX-License-Identifier: MIT
#
# Completion for fish: the program itself says what may stand at the cursor.
function __editor_settings_candidates
    set -l words (commandline -opc)
    set -l current (commandline -ct)
    for line in ($words[1] complete -- $words[2..-1] "$current" 2>/dev/null)
        switch $line
            case ':files*'
                __fish_complete_path "$current"
            case ':folders*'
                __fish_complete_directories "$current"
            case '*'
                echo $line
        end
    end
end
complete -c editor-settings -f -a '(__editor_settings_candidates)'
