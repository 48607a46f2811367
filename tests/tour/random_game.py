"""Game folders of random content, damaged in every way that files from old disks are: cut off, overlapping, beside the mark."""
import os
import random
import struct


def write(folder, seed):
    r = random.Random(seed)
    os.makedirs(folder)
    files = {'GAME.PAL': r.randbytes(r.choice([0, 1157, 1500, 1924, 2000])), 'UIF.DAT': r.randbytes(r.choice([0, 50, 192])),
             'SND.DAT': sounds(r)}
    for number in (1, 2, 3):
        files['IMG.%d' % number] = images(r)
        files['MAP.%d' % number] = struct.pack('<h', 3) + r.randbytes(512 + r.choice([100, 8192, 3 * 8192]))
    for name, data in files.items():
        name = r.choice([name, name, name.lower()])  # the game's system did not tell case apart
        with open(os.path.join(folder, name), 'wb') as f:
            f.write(data)


def images(r):
    offsets, codes, data, base = [0] * 512, [r.randbytes(90) for _ in range(512)], b'', 2048 + 512 * 90
    for g in sorted(r.sample(range(1, 512), 40)):
        offsets[g] = base + len(data)
        count = r.choice([0, 1, 2, 5])
        codes[g] = codes[g][:2] + bytes([count]) + codes[g][3:]
        for _ in range(count):
            width, height = r.choice([(r.randint(1, 255), r.randint(1, 255)), (r.randint(1, 9), r.randint(1, 9)), (0, 7)])
            data += bytes([width, height]) + r.randbytes(8 + width * height)
    end = base + len(data)
    for g in r.sample(range(2, 512), 6):
        offsets[g] = r.choice([offsets[g - 1], -1, -2 ** 31, end - 5, end + 100, 2 ** 31 - 1, 77, base + 3])
        codes[g] = codes[g][:2] + bytes([3]) + codes[g][3:]
    archive = struct.pack('<512i', *offsets) + b''.join(codes) + data
    return archive[:len(archive) - r.choice([0, 0, 1, 5000])]


def sounds(r):
    table, data = [(0, 0)] * 160, b''
    for n in r.sample(range(160), 30):
        size = r.choice([65535, 1, 3, 4, 20, r.randint(1, 65535)])
        table[n] = (size, 960 + len(data))
        body = r.choice([b'IBK', b'MThd', b'Creative Voice File', b'MThx', b'']) + r.randbytes(size)
        data += body[:size if r.random() < 0.8 else size // 2]  # some overlap the next
    for n in r.sample(range(160), 5):
        table[n] = (r.randint(0, 65535), r.choice([0, -1, -2 ** 31, 2 ** 31 - 1, 3, 960 + len(data) - 2]))
    archive = b''.join(struct.pack('<Hi', *entry) for entry in table) + data
    return archive[:len(archive) - r.choice([0, 1, 30000])]
