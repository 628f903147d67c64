# fish completion for tarnwick

complete -c tarnwick -x -a '(__fish_complete_suffix .cp; __fish_complete_suffix .epd)'
complete -c tarnwick -s h -l help -d 'Print a short help'
complete -c tarnwick -l version -d 'Print the version'
complete -c tarnwick -l home -x -a '(__fish_complete_directories)' -d 'The folder of all that the program keeps'
