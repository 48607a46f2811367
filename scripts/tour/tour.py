#!/usr/bin/env python3
"""Tours the real program in a virtual display with real keys, and saves screenshots.

usage: tour.py PROGRAM-FOLDER GAME-FOLDER DEMO-FOLDER OUTPUT-FOLDER

A copy of the program folder is driven, so that its settings stay as they are. What the window shows is compared, pixel by
pixel, with a second reading of the game's files; what it exports, with the files that the game was packed from. Ends with a status other than 0 when anything differs.
"""
import os
import shutil
import sys

import desktop

sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..', 'tests', 'tour'))
import model  # noqa: E402  the second reading of the game's files
import random_game  # noqa: E402

CLIENT_HEIGHT = 488  # the menu bar stands above
MAP_BOX = (8 + 144, 8 + 16)  # top left corners of the picture boxes in the client area
IMAGE_BOX = (8 + 144, 8 + 16)
# Export All leaves out the duplicate group and all banks but the last.
NOT_EXPORTED = ('Picture 1-046-', 'Morvane 001')


class Tour:
    def __init__(self, program_folder, game, demo, output):
        self.game, self.demo, self.output = os.path.abspath(game), os.path.abspath(demo), os.path.abspath(output)
        shutil.rmtree(self.output, ignore_errors=True)
        self.program = os.path.join(self.output, 'program')
        shutil.copytree(program_folder, self.program, ignore=shutil.ignore_patterns('*.ini'))
        with open(os.path.join(self.program, 'morvane-extractor.ini'), 'wb') as f:
            f.write(b'[Settings]\r\nOpenPath=' + os.fsencode(self.game) + b'\r\n')
        self.shots = 0
        self.exports = os.path.join(self.output, 'exports')
        os.mkdir(self.exports)

    def shoot(self, name):
        self.shots += 1
        path = os.path.join(self.output, '%02d-%s.png' % (self.shots, name))
        desktop.shoot(path)
        print('  saved', path)

    def demo_files(self, kind, prefix=''):
        folder = os.path.join(self.demo, kind)
        return {name: model.read(folder, name) for name in os.listdir(folder)
                if name.startswith(prefix) and not name.startswith(NOT_EXPORTED)}

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
        for seed in (1, 2):
            self.tour_random_game(seed)
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
        desktop.keys('End')
        self.expect(episode.picture(max(episode.groups), 0), IMAGE_BOX, 'episode %d, last group' % number)
        self.shoot('episode%d-images' % number)
        desktop.keys('Home')
        desktop.keys('ctrl+d')
        self.shoot('episode%d-sounds' % number)
        self.export_images(episode)
        if number == 3:
            self.export_sounds()

    def tour_random_game(self, seed):
        """Opens a damaged folder and exports all of it; the model tells what must come out."""
        folder = os.path.join(self.output, 'random%d' % seed)
        random_game.write(folder, seed)
        desktop.keys('ctrl+o')
        self.answer_folder_dialog(folder)
        desktop.activate(self.main)
        desktop.keys('ctrl+w')
        for number in (1, 2, 3):
            desktop.keys('ctrl+shift+F%d' % number)
            self.export_all('../random%d/out%d' % (seed, number), model.Episode(folder, number).image_files())
        desktop.keys('ctrl+d')
        self.export_all('../random%d/sounds' % seed, model.sound_files(folder))

    def export_images(self, episode):
        desktop.keys('ctrl+w')
        g = sorted(episode.groups)[1]
        desktop.keys('Down')
        self.expect(episode.picture(g, 0), IMAGE_BOX, 'episode %d, group %d' % (episode.number, g))
        files = self.demo_files('images', 'Picture %d-' % episode.number)
        name = 'Picture %d-%03d-01.bmp' % (episode.number, g)
        self.export('Save Image As...', name, files[name])
        self.export_all('images%d' % episode.number, files)

    def export_sounds(self):
        desktop.keys('ctrl+d')
        sounds, titles = model.sounds(self.game), {'InstBank': 'Instrument Bank', 'MIDI': 'MIDI', 'VOC': 'VOC'}
        numbers, files = sorted(sounds), self.demo_files('sounds')
        for label, title in titles.items():
            number = max(n for n in numbers if sounds[n][0] == label)
            desktop.keys('Home', *['Down'] * numbers.index(number))
            name = sounds[number][1]
            self.export('Save %s As...' % title, name, files[name])
        self.export_all('sounds', files)

    def export(self, title, name, expected):
        """One single export under the proposed name, over nothing and then over a longer file."""
        path = os.path.join(self.program, name)
        for before in (None, b'x' * (len(expected) + 100)):
            if before:
                with open(path, 'wb') as f:
                    f.write(before)
            desktop.keys('alt+f')
            desktop.keys('e')
            desktop.window('^' + title)
            desktop.keys('Return')
            desktop.window('^Confirm Save As$')
            if before and self.shots < 12:
                self.shoot('export')
            desktop.keys('alt+y')
            desktop.gone('^' + title)
            desktop.activate(self.main)
            desktop.wait(lambda: os.path.exists(path) and model.read(path) == expected, name)
        print('  checked:', name, 'exported alone')

    def answer_folder_dialog(self, folder):
        desktop.window('^Browse For Folder$')
        desktop.keys('alt+f', 'ctrl+a')
        desktop.type_text(folder)
        desktop.keys('Return')
        desktop.gone('^Browse For Folder$')

    def export_all(self, folder, expected):
        target = os.path.normpath(os.path.join(self.exports, folder))
        os.mkdir(target)
        desktop.keys('alt+f')
        desktop.keys('Down', 'Down', 'Return')
        self.answer_folder_dialog(target)
        desktop.window('^Morvane Extractor$')
        if not folder.startswith('..'):
            self.shoot('export-all-' + folder)
        desktop.keys('Return')
        desktop.gone('^Morvane Extractor$')
        desktop.activate(self.main)
        found = {name: model.read(target, name) for name in os.listdir(target)}
        assert sorted(found) == sorted(expected), (folder, set(found) ^ set(expected))
        assert all(found[name] == expected[name] for name in found), folder
        print('  checked: all %d files of %s' % (len(found), folder))


def main():
    tour = Tour(*sys.argv[1:5])
    tour.desktop = desktop.Desktop()
    try:
        tour.run()
    except BaseException:
        tour.shoot('failure')
        raise
    finally:
        tour.desktop.close()
    print('Toured the program; %d screenshots lie in %s' % (tour.shots, tour.output))


if __name__ == '__main__':
    main()
