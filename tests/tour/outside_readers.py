#!/usr/bin/env python3
"""Has other people's programs open what the program exported: ImageMagick, sox, mido and file.

usage: outside_readers.py GAME-FOLDER EXPORTS-FOLDER
"""
import os
import subprocess
import sys

import mido

import model

FILE_TYPES = {'.bmp': 'PC bitmap', '.mid': 'Standard MIDI data', '.voc': 'Creative Labs voice data',
              '.ibk': 'IBK instrument data'}


def output(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=True)
    assert not done.stderr, done.stderr
    return done.stdout


def check_images(game, exports):
    for number in (1, 2, 3):
        episode, folder = model.Episode(game, number), os.path.join(exports, 'images%d' % number)
        wanted = [('Picture %d-%03d-%02d.bmp' % (number, g, k + 1), b''.join(episode.picture(g, k)))
                  for g in sorted(episode.groups) for k in range(len(episode.groups[g]))]
        read = output('convert', *[os.path.join(folder, name) for name, _ in wanted], '-depth', '8', 'rgb:-')
        position = 0
        for name, rgb in wanted:
            assert read[position:position + len(rgb)] == rgb, name
            position += len(rgb)
        assert position == len(read)
        print('ImageMagick reads the pixels of %d images of episode %d' % (len(wanted), number))


def voc_sound(data):
    """Rate and number of samples of a voice file, from its blocks; sox plays what is repeated once."""
    position, samples, rate = int.from_bytes(data[20:22], 'little'), 0, None
    while data[position]:
        size = int.from_bytes(data[position + 1:position + 4], 'little')
        if data[position] == 1:
            rate = 1000000 // (256 - data[position + 4])
            samples += size - 2
        elif data[position] == 2:
            samples += size
        position += 4 + size
    return rate, samples


def check_sounds(game, exports):
    folder = os.path.join(exports, 'sounds')
    songs = effects = 0
    for label, name, data in model.sounds(game).values():
        path = os.path.join(folder, name)
        if label == 'VOC':
            rate, samples = voc_sound(data)
            assert abs(float(output('soxi', '-r', path)) - rate) <= 1, name
            assert len(output('sox', path, '-t', 'u8', '-')) == samples, name
            effects += 1
        if label == 'MIDI':
            song = mido.MidiFile(path)
            assert song.length >= 10 and any(m.type == 'note_on' for track in song.tracks for m in track), name
            songs += 1
    print('sox plays %d effects, mido reads %d songs' % (effects, songs))


def check_types(exports):
    paths = [os.path.join(folder, name) for folder, _, names in os.walk(exports) for name in names]
    for line in output('file', '--separator', '\t', *paths).decode().splitlines():
        path, kind = line.split('\t', 1)
        assert FILE_TYPES[os.path.splitext(path)[1]] in kind, line
    print('file recognises all %d files' % len(paths))


if __name__ == '__main__':
    check_images(*sys.argv[1:3])
    check_sounds(*sys.argv[1:3])
    check_types(sys.argv[2])
