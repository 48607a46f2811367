#!/usr/bin/env python3
"""Tours the real program in a virtual display with real keys, and saves screenshots.

usage: tour.py PROGRAM-FOLDER GAME-FOLDER OUTPUT-FOLDER

A copy of the program folder is driven, so that its settings stay as they are. What the window shows is compared, pixel by
pixel, with a second reading of the game's files. Ends with a status other than 0 when anything differs.
"""
import os
import shutil
import sys

import desktop
import model

CLIENT_HEIGHT = 488  # the menu bar stands above
MAP_BOX = (8 + 144, 8 + 16)  # top left corners of the picture boxes in the client area
IMAGE_BOX = (8 + 144, 8 + 16)


class Tour:
    def __init__(self, program_folder, game, output):
        self.game, self.output = os.path.abspath(game), os.path.abspath(output)
        shutil.rmtree(self.output, ignore_errors=True)
        self.program = os.path.join(self.output, 'program')
        shutil.copytree(program_folder, self.program, ignore=shutil.ignore_patterns('*.ini'))
        with open(os.path.join(self.program, 'morvane-extractor.ini'), 'wb') as f:
            f.write(b'[Settings]\r\nOpenPath=' + os.fsencode(self.game) + b'\r\n')
        self.shots = 0

    def shoot(self, name):
        self.shots += 1
        path = os.path.join(self.output, '%02d-%s.png' % (self.shots, name))
        desktop.shoot(path)
        print('  saved', path)

    def expect(self, rows, corner, what):
        """Waits until the window shows these RGB rows at a place of its client area."""
        def shown():
            content = desktop.pixels(self.main)
            left, top = corner[0], corner[1] + len(content) - CLIENT_HEIGHT
            return all(content[top + y][3 * left:3 * left + len(row)] == row for y, row in enumerate(rows))
        desktop.wait(shown, what + ' as in the archive', 15)
        print('  checked:', what)

    def run(self):
        process = self.desktop.start([os.path.join(self.program, 'morvane-extractor')])
        self.main = desktop.window('^Morvane Extractor - 1\\.0\\.0$')
        for number in (1, 2, 3):
            self.tour_episode(number)
        desktop.keys('alt+f')
        desktop.keys('x')
        process.wait(timeout=20)
        assert process.returncode == 0, process.returncode

    def tour_episode(self, number):
        episode = model.Episode(self.game, number)
        tiles = model.tiles(os.path.join(self.program, 'Episode%d.tsd' % number))
        desktop.keys('ctrl+m', 'ctrl+shift+F%d' % number)
        self.expect(episode.map_picture(0, tiles), MAP_BOX, 'episode %d, map 0' % number)
        self.shoot('episode%d-maps' % number)
        desktop.keys('Down')
        self.expect(episode.map_picture(1, tiles), MAP_BOX, 'episode %d, map 1' % number)
        desktop.keys('ctrl+w')
        self.expect(episode.picture(min(episode.groups), 0), IMAGE_BOX, 'episode %d, first image' % number)
        self.shoot('episode%d-images' % number)
        desktop.keys('ctrl+d')
        self.shoot('episode%d-sounds' % number)


def main():
    tour = Tour(*sys.argv[1:4])
    tour.desktop = desktop.Desktop()
    try:
        tour.run()
    finally:
        tour.desktop.close()
    print('Toured the program; %d screenshots lie in %s' % (tour.shots, tour.output))


if __name__ == '__main__':
    main()
