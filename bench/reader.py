# A second reader of the game's images, written from their tables alone, as a user would write it.
import os
import struct


def read(folder, name):
    # A game file, in whatever case it is named.
    actual = name if name in os.listdir(folder) else min(n for n in os.listdir(folder) if n.lower() == name.lower())
    with open(os.path.join(folder, actual), 'rb') as f:
        return f.read()


def cut(data, position, count):
    # The bytes of a place, with zeros for those that the file lacks.
    return data[position:position + count].ljust(count, b'\0')


def images(folder, number):
    # {file name: bytes} of what Export All writes of an episode's images.
    triples, data, found = cut(read(folder, 'GAME.PAL'), 1156, 768), read(folder, 'IMG.%d' % number), {}
    table = b''.join(triples[i:i + 3][::-1] + b'\0' for i in range(0, 768, 3))
    offsets = [0] + [struct.unpack('<i', cut(data, 4 * g, 4))[0] for g in range(1, 512)]
    for g in range(1, 512):
        position = offsets[g]
        if position <= 0 or position == offsets[g - 1]:
            continue
        for k in range(cut(data, 2048 + 90 * g, 90)[2]):
            width, height = cut(data, position, 2)
            columns = cut(data, position + 10, width * height)
            position += 10 + width * height
            stride = (width + 3) // 4 * 4
            rows = [columns[y::height].ljust(stride, b'\0') for y in reversed(range(height if width else 0))]
            head = struct.pack('<2sIIIIiiHH24x', b'BM', 1078 + stride * height, 0, 1078, 40, width, height, 1, 8)
            found['Picture %d-%03d-%02d.bmp' % (number, g, k + 1)] = head + table + b''.join(rows)
    return found
