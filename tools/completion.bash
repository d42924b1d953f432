# Completes the arguments of directory_check and directory_vcard: the options that their help names,
# the two commands, folders and files.
_nsdirectory_tools()
{
    local cur prev words cword
    _init_completion || return
    local command=
    [[ $1 != *directory_vcard ]] || command=${words[1]}
    if [[ $prev == --folder ]]; then
        _filedir -d
    elif [[ $1 == *directory_vcard && $cword -eq 1 ]]; then
        COMPREPLY=($(compgen -W 'import export --help' -- "$cur"))
    elif [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$(_parse_help "$1" "$command --help")" -- "$cur"))
    else
        _filedir
    fi
} && complete -F _nsdirectory_tools directory_check directory_vcard
