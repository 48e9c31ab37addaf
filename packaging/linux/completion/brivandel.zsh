#compdef brivandel

_brivandel_subcommands() {
    local -a subcommands=(
        'commands:List what can be said'
        'try:Say what would happen if these words were heard'
        'listen:Listen and carry out what is said'
        'transcribe:Print what the recogniser hears in sound files'
        'script:Hand an AppleScript to the script host'
        'replay:Play a scenario against the engine'
        'devices:List the inputs'
        'targets:List the workstations whose keys are known'
        'doctor:Look at everything that listening needs'
        'autostart:Start when you log in, or not'
    )
    _describe subcommand subcommands
}

_brivandel() {
    local -a common=('(- *)'{-h,--help}'[Print what it takes]' '--json[Print JSON, one object a line]')
    local target='--target=[The program that stands for Logic Pro]:program: '
    local events='change log script beep notification store request task engine append permissionRequest state'
    if ((CURRENT == 2)) || [[ ${words[2]} == -* ]]; then
        _arguments \
            '(- *)'{-h,--help}'[Print what it takes]' \
            '(- *)--version[Print the version]' \
            '(--popover --settings --commands --quit)--toggle[Switch listening on or off]' \
            '(--toggle --settings --commands --quit)--popover[Show the status, or close it]' \
            '(--toggle --popover --commands --quit)--settings[Open the settings]' \
            '(--toggle --popover --settings --quit)--commands[Open the command reference]' \
            '(--toggle --popover --settings --commands)--quit[End the program]' \
            '--appearance=[Look so, whatever the desktop says]:appearance:(light dark)' \
            '1:subcommand:_brivandel_subcommands'
        return
    fi
    local subcommand=${words[2]}
    shift words
    ((CURRENT--))
    case $subcommand in
        commands|devices)
            _arguments $common ;;
        try)
            _arguments $common '*:word: ' ;;
        listen)
            _arguments $common $target '--dry-run[Run no script]' '--real-time[Listen to files at the pace of a microphone]' \
                '*:WAV file:_files -g "*.(#i)wav(-.)"' ;;
        transcribe)
            _arguments $common '*:WAV file:_files -g "*.(#i)wav(-.)"' ;;
        script)
            _arguments $common $target '1:script:_files' ;;
        replay)
            _arguments $common '--settings=[Start from a copy of this settings file]:settings file:_files' \
                "--only=[Print these events only]:events:_values -s , event $events" '1:scenario:_files' ;;
        targets|doctor)
            _arguments $common $target ;;
        autostart)
            _arguments $common '1:state:(on off)' ;;
    esac
}

_brivandel "$@"
