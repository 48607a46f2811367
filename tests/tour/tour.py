#!/usr/bin/env python3
# Tours the real program in a virtual display with real keys, and saves screenshots.
#
# usage: tour.py PROGRAM-FOLDER GAME-FOLDER DEMO-FOLDER OUTPUT-FOLDER
#
# A copy of the program folder is driven, so that its settings stay as they are; Wine runs a program for Windows. GAME-FOLDER
# is the demo game packed from the files of DEMO-FOLDER: Export All must give back exactly these, and images in the window
# are compared with them pixel by pixel. Ends with a status other than 0 when anything differs.
import os
import re
import shutil
import struct
import sys
from pathlib import Path

import desktop

VERSION = re.search('VERSION ([0-9.]+) ', (Path(__file__).parents[2] / 'CMakeLists.txt').read_text().split('project(')[1])[1]
CLIENT_HEIGHT = 488  # the menu bar stands above
PICTURE_LEFT, PICTURE_TOP = 8 + 144, 8 + 16  # of both picture boxes in the client area
FOLDER_DIALOG = '^(%s|Select Folder)$'  # the latter is what Wine calls it
NOT_EXPORTED = ('Picture 1-046-', 'Morvane 001.ibk')  # a duplicate, and a bank that the last one replaces


def picture(bmp):
    # RGB rows of an exported image, from the top.
    width, height = struct.unpack('<ii', bmp[18:26])
    stride = (width + 3) // 4 * 4
    colors = [bmp[i:i + 3][::-1] for i in range(54, 1078, 4)]
    rows = [bmp[1078 + stride * y:][:width] for y in reversed(range(height))]
    return [b''.join(colors[p] for p in row) for row in rows]


class Tour:
    def __init__(self, program, game, demo, output):
        self.game, self.output, self.shots = Path(game).resolve(), Path(output).resolve(), 0
        shutil.rmtree(self.output, ignore_errors=True)
        self.program = self.output / 'program'
        shutil.copytree(program, self.program, ignore=shutil.ignore_patterns('*.ini'))
        self.windows = (self.program / 'morvane-extractor.exe').exists()
        self.demo = {path.name: path.read_bytes() for kind in ('images', 'sounds') for path in (Path(demo) / kind).iterdir()
                     if not path.name.startswith(NOT_EXPORTED)}

    def native(self, path):
        return 'Z:' + str(path).replace('/', '\\') if self.windows else str(path)

    def shoot(self, name):
        self.shots += 1
        desktop.shoot(self.output / ('%02d-%s.png' % (self.shots, name)))

    def expect(self, name):
        # Waits until the picture box shows this image.
        rows = picture(self.demo[name])

        def shown():
            content = desktop.pixels(self.main)
            top = PICTURE_TOP + len(content) - CLIENT_HEIGHT
            return all(content[top + y][3 * PICTURE_LEFT:3 * PICTURE_LEFT + len(row)] == row
                       for y, row in enumerate(rows))
        desktop.wait(shown, name + ' in the window', 15)
        print('  checked:', name)

    def start(self, **environment):
        settings = b'[Settings]\r\nOpenPath=' + os.fsencode(self.native(self.game)) + b'\r\n'
        (self.program / 'morvane-extractor.ini').write_bytes(settings)
        environment['XDG_CONFIG_HOME'] = str(self.output / 'configuration')
        self.process = desktop.start(['wine', 'morvane-extractor.exe'] if self.windows else ['./morvane-extractor'],
                                     cwd=self.program, env={**os.environ, **environment})
        self.main = desktop.window('^Morvane Extractor - %s$' % re.escape(VERSION))

    def back(self, dialog):
        # Waits until the window has the keyboard back from a dialog. Wine does not take it after one of the system's.
        desktop.gone(dialog)
        if self.windows:
            desktop.run('xdotool', 'windowactivate', '--sync', self.main)
        desktop.window('^Morvane Extractor - ')

    def end(self):
        desktop.keys('alt+f')
        desktop.keys('x')
        assert self.process.wait(timeout=20) == 0
        # The toolkit would keep settings there; Wine does.
        assert self.windows or not (self.output / 'configuration').exists()

    def run(self):
        self.start()
        self.change_mind()
        for number in (1, 2, 3):
            self.tour_episode(number)
        desktop.keys('ctrl+d')
        self.shoot('sounds')
        for entry, title, name in (('InstBank 159', 'Instrument Bank', 'Morvane.ibk'), ('MIDI 7', 'MIDI', 'Song 007.mid'),
                                   ('VOC 64', 'VOC', 'Sound 064.voc')):
            desktop.type_text(entry)
            self.export('Save %s As...' % title, name)
        self.export_all('sounds', {name: data for name, data in self.demo.items() if not name.endswith('.bmp')},
                        makes_folder=not self.windows)
        self.open_copy()
        self.end()
        if not self.windows:  # a desktop that has file dialogs of its own changes nothing
            self.start(QT_QPA_PLATFORMTHEME='gtk3')
            self.change_mind()
            self.end()

    def change_mind(self):
        # A folder that is not there and a "No" lead back into the dialog; left by Escape, the window answers the mouse.
        desktop.keys('ctrl+o')
        dialog = desktop.window(FOLDER_DIALOG % 'Select the Morvane Folder')
        desktop.type_text(self.native(self.output / 'none'))
        desktop.keys('Return')
        if self.windows:
            desktop.window('^$')  # Wine complains, too
            desktop.keys('Return')
        complaint = desktop.window('^Select the Morvane Folder$', other=dialog)
        self.shoot('complaint')
        desktop.keys('Return')
        desktop.window(FOLDER_DIALOG % 'Select the Morvane Folder', other=complaint)
        desktop.keys('Escape')
        self.back(FOLDER_DIALOG % 'Select the Morvane Folder')
        menu = len(desktop.pixels(self.main)) - CLIENT_HEIGHT
        desktop.keys('ctrl+w')
        desktop.run('xdotool', 'mousemove', '--sync', '--window', self.main, '40', str(menu + 45), 'click', '1')
        self.expect('Picture 1-002-01.bmp')
        desktop.keys('Home', 'alt+f')
        desktop.keys('e')
        dialog = desktop.window('^Save Image As')
        desktop.keys('ctrl+a')
        desktop.type_text(self.native(self.output / 'taken back'))
        desktop.keys('Return')
        desktop.window('^Confirm Save As$')
        desktop.keys('alt+n')
        assert desktop.window('^Save Image As') == dialog or self.windows
        desktop.keys('Return')
        desktop.window('^Confirm Save As$')
        self.shoot('taken-back')
        desktop.keys('alt+y')
        self.back('^Save Image As')
        written = self.output / 'taken back.bmp'
        desktop.wait(lambda: written.exists() and written.read_bytes() == self.demo['Picture 1-001-01.bmp'], written.name)
        written.unlink()
        print('  checked: a mind changed in both dialogs')

    def tour_episode(self, number):
        desktop.keys('ctrl+m', 'ctrl+shift+F%d' % number)
        self.shoot('episode%d-maps' % number)
        files = {name: data for name, data in self.demo.items() if name.startswith('Picture %d-' % number)}
        firsts = sorted(name for name in files if name.endswith('-01.bmp'))
        desktop.keys('ctrl+w')
        for key, name in (('Home', firsts[0]), ('Down', firsts[1]), ('End', firsts[-1])):
            desktop.keys(key)
            self.expect(name)
        self.shoot('episode%d-images' % number)
        self.export('Save Image As...', name)
        self.export_all('images%d' % number, files)

    def open_copy(self):
        # Another folder, with names as old disks leave them.
        copy = self.output / 'copy'
        copy.mkdir()
        for path in self.game.iterdir():
            shutil.copy(path, copy / path.name.lower())
        desktop.keys('ctrl+o')
        desktop.window(FOLDER_DIALOG % 'Select the Morvane Folder')
        desktop.type_text(self.native(copy))
        desktop.keys('Return')
        self.back(FOLDER_DIALOG % 'Select the Morvane Folder')
        desktop.keys('ctrl+w')
        self.expect('Picture 1-001-01.bmp')

    def export(self, title, name):
        # One single export under the proposed name, over nothing and then over a longer file.
        path, expected = self.program / name, self.demo[name]
        for before in (False, True):
            if before:
                path.write_bytes(expected + bytes(100))
            desktop.keys('alt+f')
            desktop.keys('e')
            desktop.window('^' + title)
            desktop.keys('Return')
            desktop.window('^Confirm Save As$')
            self.shoot('export')
            desktop.keys('alt+y')
            self.back('^' + title)
            desktop.wait(lambda: path.exists() and path.read_bytes() == expected, name)
        print('  checked:', name, 'exported alone')

    def export_all(self, name, expected, makes_folder=False):
        target = (self.program if makes_folder else self.output) / name
        desktop.keys('alt+f')
        desktop.keys('Down', 'Down', 'Return')
        desktop.window(FOLDER_DIALOG % 'Export Path')
        if makes_folder:  # by the menu of the list
            desktop.keys('shift+Tab', 'Menu', 'n')
            desktop.window('^New Folder$')
            desktop.type_text(name)
            desktop.keys('Return')
            desktop.window('^Export Path$')
        else:
            target.mkdir()
            desktop.type_text(self.native(target))
        desktop.keys('Return')
        desktop.window('^Morvane Extractor$')
        self.shoot(name)
        desktop.keys('Return')
        self.back('^Morvane Extractor$')
        found = {path.name: path.read_bytes() for path in target.iterdir()}
        assert sorted(found) == sorted(expected), (name, set(found) ^ set(expected))
        assert all(found[file] == expected[file] for file in found), 'other bytes in ' + name
        print('  checked: all %d files of %s' % (len(found), name))


tour = Tour(*sys.argv[1:5])
with desktop.Desktop():
    try:
        tour.run()
    except BaseException:
        tour.shoot('failure')
        raise
print('Toured the program; %d screenshots lie in %s' % (tour.shots, tour.output))
