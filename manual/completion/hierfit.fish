# Completion of hierfit for fish. The program itself tells what may stand where.

function __hierfit_complete
    set -l before (commandline -opc)
    set -l current (commandline -ct)
    # Of --option=path, the path is what can be completed.
    set -l path (string replace -r -- '^--[^=]*=' '' $current)
    set -l option (string replace -- $path '' $current)
    for line in ($before[1] --complete (count $before) $before[2..-1] $current 2>/dev/null)
        switch $line
            case :files
                printf '%s\n' $option(__fish_complete_path $path)
            case :folders
                printf '%s\n' $option(__fish_complete_directories $path '')
            case '*'
                echo $line
        end
    end
end

complete -c hierfit -f -a '(__hierfit_complete)'
