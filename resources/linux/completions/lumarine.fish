# Completes words of lumarine in fish.
complete -c lumarine -l help -d 'Show usage'
complete -c lumarine -l version -d 'Show the version'
complete -c lumarine -k -xa '(__fish_complete_suffix .xml)'
