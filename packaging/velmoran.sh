#!/bin/sh
# Starts the window in its own folder, wherever this is called from. If a library isn't there, says what to install.
cd "$(dirname "$(readlink -f "$0")")" || exit
lacking=$(LC_ALL=C ldd lib/velmoran 2>&1 | grep 'not found')
[ -n "$lacking" ] || exec lib/velmoran

if command -v apt >/dev/null; then
  install='sudo apt install libqt6widgets6'
elif command -v dnf >/dev/null; then
  install='sudo dnf install qt6-qtbase-gui'
elif command -v pacman >/dev/null; then
  install='sudo pacman -S qt6-base'
elif command -v zypper >/dev/null; then
  install='sudo zypper install libQt6Widgets6'
else
  install='your package manager: the package with libQt6Widgets.so.6'
fi
case $lacking in
  *version*) message="The window needs Qt 6.4 and a system as new as Debian 12; this one is older:
$lacking" ;;
  *) message="The window needs Qt 6, which isn't installed. Install it with

    $install" ;;
esac
message="$message

velmoran-console does the same without a window, and needs nothing."
printf '%s\n' "$message" >&2
if [ ! -t 2 ]; then # started from a desktop, where nobody sees that
  zenity --error --text="$message" || kdialog --error "$message" || xmessage "$message"
fi >/dev/null 2>&1
exit 1
