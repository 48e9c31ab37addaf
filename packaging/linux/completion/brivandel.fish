# fish completion for brivandel

set -l subcommands commands try listen transcribe script replay devices targets doctor autostart
set -l events change log script beep notification store request task engine append permissionRequest state
set -l at_first "not __fish_seen_subcommand_from $subcommands"

complete -c brivandel -f
complete -c brivandel -s h -l help -d 'Print what it takes'
complete -c brivandel -n $at_first -l version -d 'Print the version'
complete -c brivandel -n $at_first -l toggle -d 'Switch listening on or off'
complete -c brivandel -n $at_first -l popover -d 'Show the status, or close it'
complete -c brivandel -n $at_first -l settings -d 'Open the settings'
complete -c brivandel -n $at_first -l commands -d 'Open the command reference'
complete -c brivandel -n $at_first -l quit -d 'End the program'
complete -c brivandel -n $at_first -l appearance -x -a 'light dark' -d 'Look so, whatever the desktop says'

complete -c brivandel -n $at_first -a commands -d 'List what can be said'
complete -c brivandel -n $at_first -a try -d 'Say what would happen if these words were heard'
complete -c brivandel -n $at_first -a listen -d 'Listen and carry out what is said'
complete -c brivandel -n $at_first -a transcribe -d 'Print what the recogniser hears in sound files'
complete -c brivandel -n $at_first -a script -d 'Hand an AppleScript to the script host'
complete -c brivandel -n $at_first -a replay -d 'Play a scenario against the engine'
complete -c brivandel -n $at_first -a devices -d 'List the inputs'
complete -c brivandel -n $at_first -a targets -d 'List the workstations whose keys are known'
complete -c brivandel -n $at_first -a doctor -d 'Look at everything that listening needs'
complete -c brivandel -n $at_first -a autostart -d 'Start when you log in, or not'

complete -c brivandel -n "__fish_seen_subcommand_from $subcommands" -l json -d 'Print JSON, one object a line'
complete -c brivandel -n '__fish_seen_subcommand_from listen script targets doctor' -l target -x -d 'The program that stands for Logic Pro'
complete -c brivandel -n '__fish_seen_subcommand_from listen' -l dry-run -d 'Run no script'
complete -c brivandel -n '__fish_seen_subcommand_from listen' -l real-time -d 'Listen to files at the pace of a microphone'
complete -c brivandel -n '__fish_seen_subcommand_from replay' -l settings -r -F -d 'Start from a copy of this settings file'
complete -c brivandel -n '__fish_seen_subcommand_from replay' -l only -x -a "$events" -d 'Print these events only'
complete -c brivandel -n '__fish_seen_subcommand_from listen transcribe script replay' -F
complete -c brivandel -n '__fish_seen_subcommand_from autostart' -a 'on off'
