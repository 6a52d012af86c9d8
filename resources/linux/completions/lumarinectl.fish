# Completes words of lumarinectl in fish. The program itself knows its words.

# The folders, and the files with one of the endings; any file if there are none. What stands in front of them in the same
# word stays.
function __lumarinectl_files
    set -l word $argv[1]
    set -l endings $argv[2..]
    set -l front (string match -r -- '^.*=' $word)
    for file in (__fish_complete_path (string replace -- "$front" '' $word | string unescape) | string replace -r '\t.*' '')
        if not set -q endings[1]; or string match -q -- '*/' $file; or contains .(string split -r -m 1 . -- $file)[-1] $endings
            echo "$front$file"
        end
    end
end

function __lumarinectl_words
    set -l before (commandline -opc)
    set -l program (string replace -r '^~/' "$HOME/" -- $before[1])
    set -l word (commandline -ct)
    for line in ($program complete -- $before[2..] $word 2>/dev/null)
        set -l parts (string split -m 1 \t -- $line)
        if test $parts[1] = /
            __lumarinectl_files $word (string split -n ' ' -- $parts[2])
        else
            echo $line
        end
    end
end

complete -c lumarinectl -f -a '(__lumarinectl_words)'
