# What README.txt says on Linux alone.
set(PLATFORM Linux)
string(CONCAT START
"The program needs one package of your system's, which brings Qt 6.4 or later:

    Debian 12                 apt install libqt6widgets6
    newer Debian and Ubuntu   apt install libqt6widgets6t64
    Fedora                    dnf install qt6-qtbase-gui
    Arch                      pacman -S qt6-base

Then open this folder and double-click morvane-extractor. Where the file
manager starts no programs, open a terminal in this folder and type

    ./morvane-extractor

It runs on systems with 64 bits (x86_64), glibc 2.34 and Qt 6.4 or later:
Debian 12, not Ubuntu 22.04. Debian 12 is where it was tried; on the others
it is untried.")
set(LIBRARIES "It takes Qt from your\nsystem; none of it lies in this folder.")
