"""A second reading of the game's files, written from their tables alone, for judging what the program shows and writes."""
import os
import struct

TILE = 7
SIDE = 64
COLORS = [0x000000, 0x0000A8, 0x00A800, 0x00A8A8, 0xA80000, 0xA800A8, 0xA85600, 0xA8A8A8,
          0x565656, 0x5656FC, 0x56FC56, 0x56FCFC, 0xFC5656, 0xFC56FC, 0xFCFC56, 0xFCFCFC]
SIGNATURES = [(b'IBK', 'InstBank', None), (b'MThd', 'MIDI', 'Song %03d.mid'),
              (b'Creative Voice File', 'VOC', 'Sound %03d.voc')]


def read(folder, name=None):
    path = folder if name is None else os.path.join(folder, name)
    if name is not None and not os.path.exists(path):
        path = os.path.join(folder, next(n for n in os.listdir(folder) if n.lower() == name.lower()))
    with open(path, 'rb') as f:
        return f.read()


def cut(data, position, count):
    """The bytes of a place, with zeros for those that lie outside."""
    if position < 0:
        return bytes(min(-position, count)) + cut(data, 0, max(count + position, 0))
    return data[position:position + count].ljust(count, b'\0')


class Episode:
    """The image and map archives of one episode, with the palette."""

    def __init__(self, folder, number):
        self.folder, self.number = folder, number
        triples = cut(read(folder, 'GAME.PAL'), 1156, 768)
        self.palette = [triples[3 * i:3 * i + 3] for i in range(256)]
        self.images = read(folder, 'IMG.%d' % number)
        self.groups = {}
        self.maps = read(folder, 'MAP.%d' % number)
        self.offsets = [0] + [struct.unpack('<i', cut(self.images, 4 * g, 4))[0] for g in range(1, 512)]
        for g in range(1, 512):
            if self.offsets[g] > 0 and self.offsets[g] != self.offsets[g - 1]:
                self.groups[g] = self.headers(g)

    def codes(self, g):
        return cut(self.images, 2048 + 90 * g, 90)

    def headers(self, g):
        position, found = self.offsets[g], []
        for _ in range(self.codes(g)[2]):
            width, height = cut(self.images, position, 2)
            found.append((position + 10, width, height))
            position += 10 + width * height
        return found

    def rows(self, g, k):
        position, width, height = self.groups[g][k]
        columns = cut(self.images, position, width * height)
        return [bytes(columns[x * height + y] for x in range(width)) for y in range(height)]

    def bmp(self, g, k):
        _, width, height = self.groups[g][k]
        stride = (width + 3) // 4 * 4
        size = 1078 + stride * height
        head = struct.pack('<2sIHHI', b'BM', size, 0, 0, 1078)
        head += struct.pack('<IiiHHIIiiII', 40, width, height, 1, 8, 0, 0, 0, 0, 0, 0)
        table = b''.join(bytes((b, g_, r, 0)) for r, g_, b in self.palette)
        return head + table + b''.join(row.ljust(stride, b'\0') for row in reversed(self.rows(g, k)))

    def picture(self, g, k):
        """RGB rows of an image."""
        return [b''.join(self.palette[p] for p in row) for row in self.rows(g, k)]

    def image_files(self):
        return {'Picture %d-%03d-%02d.bmp' % (self.number, g, k + 1): self.bmp(g, k)
                for g, images in self.groups.items() for k in range(len(images))}

    def map_picture(self, number, tiles):
        """RGB rows of a drawn map."""
        cells = cut(self.maps, 514 + 8192 * number, 8192)
        picture = [bytearray(3 * TILE * SIDE) for _ in range(TILE * SIDE)]
        for i in range(SIDE * SIDE):
            for plane in (0, 1):
                code = cells[2 * i + plane]
                if plane == 1 and code == 0:
                    continue
                pattern = tiles.get((plane, code), '0' * 49 if code == 0 else 'F' * 49)
                for p, digit in enumerate(pattern[:49]):
                    if plane == 1 and digit == '0':
                        continue
                    y, x = TILE * (i // SIDE) + p // TILE, TILE * (i % SIDE) + p % TILE
                    picture[y][3 * x:3 * x + 3] = COLORS[int(digit, 16)].to_bytes(3, 'big')
        return [bytes(row) for row in picture]


def tiles(path):
    """Patterns by (plane, code) of a symbol file."""
    plane, found = None, {}
    for line in read(path).decode('latin-1').split('\r\n'):
        if line.startswith('['):
            plane = {'[Plane 0]': 0, '[Plane 1]': 1}.get(line)
        elif plane is not None and '=' in line and not line.startswith(';'):
            code, value = line.split('=', 1)
            if value.count(',') >= 2:
                found.setdefault((plane, int(code)), value.split(',', 2)[1])
    return found


def sounds(folder):
    """{entry number: (list label, file name, bytes)} of the recognised entries."""
    data, found = read(folder, 'SND.DAT'), {}
    for n in range(160):
        size, offset = struct.unpack('<Hi', cut(data, 6 * n, 6))
        if size == 0 or offset <= 0:
            continue
        for signature, label, name in SIGNATURES:
            if cut(data, offset, len(signature)) == signature:
                found[n] = (label, name % n if name else 'Morvane.ibk', cut(data, offset, size))
                break
    return found


def sound_files(folder):
    """What Export All writes of the sounds; of several banks the last remains."""
    return {name: data for _, (_, name, data) in sorted(sounds(folder).items())}
