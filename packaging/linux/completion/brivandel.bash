# bash completion for brivandel

# Offers the words of the first argument that begin with what is being typed.
_brivandel_offer() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$2")
}

_brivandel_offer_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

_brivandel() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local subcommand='' index
    COMPREPLY=()
    for ((index = 1; index < COMP_CWORD; ++index)); do
        if [[ ${COMP_WORDS[index]} != -* ]]; then
            subcommand=${COMP_WORDS[index]}
            break
        fi
    done

    case $previous in
        --target) return ;;
        --appearance) _brivandel_offer 'light dark' "$current"; return ;;
        --only)
            _brivandel_offer 'change log script beep notification store request task engine append permissionRequest state' \
                "$current"
            return
            ;;
        --settings)
            if [[ $subcommand == replay ]]; then
                _brivandel_offer_files "$current"
                return
            fi
            ;;
    esac

    case $subcommand in
        '')
            if [[ $current == -* ]]; then
                _brivandel_offer '-h --help --version --toggle --popover --settings --commands --quit --appearance' "$current"
            else
                _brivandel_offer 'commands try listen transcribe script replay devices targets doctor autostart' "$current"
            fi
            return
            ;;
        commands | try | devices | transcribe | autostart) _brivandel_offer '-h --help --json' "$current" ;;
        listen) _brivandel_offer '-h --help --json --target --dry-run --real-time' "$current" ;;
        script | targets | doctor) _brivandel_offer '-h --help --json --target' "$current" ;;
        replay) _brivandel_offer '-h --help --json --settings --only' "$current" ;;
    esac
    [[ $current == -* ]] && return
    COMPREPLY=()
    case $subcommand in
        listen | transcribe | script | replay) _brivandel_offer_files "$current" ;;
        autostart) _brivandel_offer 'on off' "$current" ;;
    esac
}

complete -F _brivandel brivandel
