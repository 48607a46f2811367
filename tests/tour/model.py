# A second reading of the game's files, written from their tables alone, for judging what the program shows and writes.
import os
import struct

COLORS = [0x000000, 0x0000A8, 0x00A800, 0x00A8A8, 0xA80000, 0xA800A8, 0xA85600, 0xA8A8A8,
          0x565656, 0x5656FC, 0x56FC56, 0x56FCFC, 0xFC5656, 0xFC56FC, 0xFCFC56, 0xFCFCFC]
KINDS = [(b'IBK', 'Morvane.ibk'), (b'MThd', 'Song %03d.mid'), (b'Creative Voice File', 'Sound %03d.voc')]


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


def sounds(folder):
    # {file name: bytes} of what Export All writes of the sounds; of several banks the last remains.
    data, found = read(folder, 'SND.DAT'), {}
    for n in range(160):
        size, offset = struct.unpack('<Hi', cut(data, 6 * n, 6))
        for signature, name in KINDS:
            if size > 0 and offset > 0 and cut(data, offset, len(signature)) == signature:
                found[name % n if '%' in name else name] = cut(data, offset, size)
    return found


def picture(bmp):
    # RGB rows of an exported image, from the top.
    width, height = struct.unpack('<ii', bmp[18:26])
    stride = (width + 3) // 4 * 4
    colors = [bmp[i:i + 3][::-1] for i in range(54, 1078, 4)]
    rows = [bmp[1078 + stride * y:][:width] for y in reversed(range(height))]
    return [b''.join(colors[p] for p in row) for row in rows]


def map_picture(folder, number, index, symbols):
    # RGB rows of a drawn map, with the symbol file of that path.
    tiles, plane = {}, None
    with open(symbols, newline='') as f:
        for line in f.read().split('\r\n'):
            if line.startswith('['):
                plane = line
            elif '=' in line and not line.startswith(';'):
                code, value = line.split('=', 1)
                tiles.setdefault((plane, int(code)), value.split(',')[1])
    cells = cut(read(folder, 'MAP.%d' % number), 514 + 8192 * index, 8192)
    rows = [bytearray(3 * 448) for _ in range(448)]
    for i, code in enumerate(cells):
        cell, plane = divmod(i, 2)
        pattern = tiles.get(('[Plane %d]' % plane, code), ('F' if code else '0') * 49)
        for p, digit in enumerate(pattern if plane == 0 or code else ''):
            if plane == 0 or digit != '0':
                y, x = 7 * (cell // 64) + p // 7, 7 * (cell % 64) + p % 7
                rows[y][3 * x:3 * x + 3] = COLORS[int(digit, 16)].to_bytes(3, 'big')
    return [bytes(row) for row in rows]
