# Completion of the desktop program's options in bash.
complete -W '--help --version' vellumdesk
