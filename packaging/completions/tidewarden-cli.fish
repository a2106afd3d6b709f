# Completion of tidewarden-cli in fish.

complete -c tidewarden-cli -f
complete -c tidewarden-cli -s h -l help -d 'Print help and end'
complete -c tidewarden-cli -l version -d 'Print the version and end'

set -l none 'not __fish_seen_subcommand_from list check next'
complete -c tidewarden-cli -n $none -a list -d 'Print the reminder list'
complete -c tidewarden-cli -n $none -a check -d 'Report lines that are not events'
complete -c tidewarden-cli -n $none -a next -d 'Print the next dates of one event line'

set -l all '__fish_seen_subcommand_from list check next'
complete -c tidewarden-cli -n $all -l today -x -a '(date +%Y-%m-%d)' -d 'Take this day for today'
complete -c tidewarden-cli -n $all -l short-date -x -a 'MM/dd/yyyy dd.MM.yyyy dd/MM/yyyy yyyy-MM-dd yy/MM/dd' -d 'Write dates like this'
complete -c tidewarden-cli -n $all -l json -d 'Print JSON'

set -l files '__fish_seen_subcommand_from list check'
complete -c tidewarden-cli -n $files -l file -r -F -d 'The events file'
complete -c tidewarden-cli -n $files -l settings -r -F -d 'A settings file in place of your own'

set -l list '__fish_seen_subcommand_from list'
complete -c tidewarden-cli -n $list -l now -x -d 'Take this time of day for now'
complete -c tidewarden-cli -n $list -l update -d 'Also tidy the events file'
complete -c tidewarden-cli -n $list -l only-if-any -d 'Exit with 1 when no event is in range'

complete -c tidewarden-cli -n '__fish_seen_subcommand_from next' -s n -x -d 'How many dates'
