// Reads a game folder with the Kaitai Struct descriptions alone and compares what they find with the raw bytes, with
// what the program exported of the same folder, and with the bytes that the document on the formats shows.
//
// usage: node check_formats.js MODULES-FOLDER DOCS-FOLDER GAME-FOLDER EXPORTS-FOLDER
'use strict';
const assert = require('assert');
const child = require('child_process');
const fs = require('fs');
const path = require('path');
const { createRequire } = require('module');

const [modules, docs, game, exported] = process.argv.slice(2).map((folder) => path.resolve(folder));
const read = (...names) => fs.readFileSync(path.join(...names));
const pad = (number, width) => String(number).padStart(width, '0');

// Installs the packages into the modules folder, unless those of this very lock file are there.
function install() {
    const lock = read(__dirname, 'package-lock.json');
    const mark = path.join(modules, 'installed.json');
    if (fs.existsSync(mark) && lock.equals(fs.readFileSync(mark))) return;
    fs.rmSync(mark, { force: true });
    fs.mkdirSync(modules, { recursive: true });
    for (const name of ['package.json', 'package-lock.json'])
        fs.copyFileSync(path.join(__dirname, name), path.join(modules, name));
    const options = ['--ignore-scripts', '--no-audit', '--no-fund'];
    try {
        child.execFileSync('npm', ['ci', ...options], { cwd: modules, stdio: 'inherit' });
    } catch {
        console.log('The packages cannot be installed now: skipped.');
        process.exit(77);
    }
    fs.writeFileSync(mark, lock);
}

// A function that reads a game file with the description of that name.
async function reader(name) {
    const load = createRequire(path.join(modules, 'package.json'));
    const description = load('yaml').parse(read(docs, 'formats', name + '.ksy').toString());
    const code = Object.values(await load('kaitai-struct-compiler').compile('javascript', description, null, false));
    assert.strictEqual(code.length, 1);
    const module = { exports: {} };
    new Function('require', 'module', 'exports', code[0])(load, module, module.exports);
    const [Format] = Object.values(module.exports);
    const Stream = load('kaitai-struct/KaitaiStream');
    return (file) => {
        const bytes = read(game, file);
        return [new Format(new Stream(bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.length))), bytes];
    };
}

// The folder holds the named files with these contents, and no others.
function checkFolder(folder, files) {
    assert.deepStrictEqual(fs.readdirSync(path.join(exported, folder)).sort(), [...files.keys()].sort(), folder);
    for (const [name, check] of files) check(read(exported, folder, name), name);
    return files.size;
}

function checkPicture(bmp, name, image, colors) {
    const stride = Math.ceil(image.width / 4) * 4;
    assert.strictEqual(bmp.toString('latin1', 0, 2), 'BM', name);
    assert.strictEqual(bmp.length, 1078 + stride * image.height, name);
    assert.deepStrictEqual([bmp.readInt32LE(18), bmp.readInt32LE(22)], [image.width, image.height], name);
    assert.strictEqual(colors.length, 256);
    colors.forEach((color, i) =>
        assert.strictEqual(bmp.readUInt32LE(54 + 4 * i), color.blue | color.green << 8 | color.red << 16, name));
    assert.strictEqual(image.columns.length, image.width, name);
    image.columns.forEach((column, x) => {
        assert.strictEqual(column.length, image.height, name);
        column.forEach((pixel, y) =>
            assert.strictEqual(bmp[1078 + stride * (image.height - 1 - y) + x], pixel, `${name} at ${x}, ${y}`));
    });
}

function checkImages(episode, [archive, bytes], colors) {
    const files = new Map();
    let duplicates = 0;
    assert.strictEqual(archive.groups.length, 512);
    archive.groups.forEach((group, g) => {
        assert.strictEqual(group.offset, bytes.readInt32LE(4 * g));
        const { unknownBefore, numImages, unknownAfter } = archive.codes[g];
        const codes = Buffer.from([...unknownBefore, numImages, ...unknownAfter]);
        assert.ok(codes.equals(bytes.subarray(2048 + 90 * g, 2138 + 90 * g)), `codes of group ${g}`);
        assert.strictEqual(group.isPresent, g > 0 && group.offset > 0);
        if (!group.isPresent) return;
        let position = group.offset;
        assert.strictEqual(group.images.length, numImages);
        group.images.forEach((image, k) => {
            assert.deepStrictEqual([image.width, image.height], [...bytes.subarray(position, position + 2)]);
            assert.strictEqual(image.unknown1, bytes.readUInt32LE(position + 2));
            assert.strictEqual(image.unknown2, bytes.readUInt32LE(position + 6));
            position += 10 + image.width * image.height;
            const name = `Picture ${episode}-${pad(g, 3)}-${pad(k + 1, 2)}.bmp`;
            if (!group.isDuplicate) files.set(name, (bmp) => checkPicture(bmp, name, image, colors));
        });
        if (group.isDuplicate) duplicates += 1;
    });
    assert.ok(files.size > 0 && duplicates > 0, 'the game has images and a group that repeats another');
    return checkFolder(`images${episode}`, files);
}

function checkMaps([archive, bytes]) {
    assert.ok(archive.numMaps > 0 && archive.maps.length === archive.numMaps);
    assert.strictEqual(archive.numMaps, bytes.readInt16LE(0));
    assert.ok(Buffer.from(archive.unknown).equals(bytes.subarray(2, 514)));
    archive.maps.forEach(({ rows }, i) => {
        const cells = rows.flatMap((row) => row.cells.flatMap((cell) => [cell.plane0, cell.plane1]));
        assert.ok(Buffer.from(cells).equals(bytes.subarray(514 + 8192 * i, 514 + 8192 * (i + 1))), `map ${i}`);
    });
    return archive.maps.length;
}

function checkEntries(entries, count, bytes) {
    assert.strictEqual(entries.length, count);
    entries.forEach((entry, n) =>
        assert.deepStrictEqual([entry.size, entry.offset], [bytes.readUInt16LE(6 * n), bytes.readInt32LE(6 * n + 2)]));
}

function checkSounds([archive, bytes]) {
    checkEntries(archive.entries, 160, bytes);
    const names = [null, () => 'Morvane.ibk', (n) => `Song ${n}.mid`, (n) => `Sound ${n}.voc`];
    const kinds = archive.entries.map((entry) => entry.entryKind);
    assert.deepStrictEqual([...new Set(kinds)].sort(), [0, 1, 2, 3], 'the game has entries of every kind');
    const files = new Map(); // banks share a name; the last one stays
    archive.entries.forEach((entry, n) => {
        if (!kinds[n]) return;
        assert.strictEqual(entry.data.length, entry.size);
        const name = names[kinds[n]](pad(n, 3));
        files.set(name, (data) => assert.ok(data.equals(Buffer.from(entry.data)), name));
    });
    return checkFolder('sounds', files);
}

// The document's hex dumps are those of the game, and it has some of every kind of file.
function checkDumps() {
    const dumps = [...read(docs, 'file-formats.md').toString()
        .matchAll(/^ +\$ xxd -s (\d+) -l (\d+) (\S+)\n((?: +[0-9a-f]{8}: .*\n)+)/gm)];
    for (const [command, start, count, file, lines] of dumps) {
        const shown = lines.trim().split('\n').map((line) => line.trim().slice(10, 49).replace(/ /g, '')).join('');
        assert.strictEqual(shown, read(game, file).subarray(+start, +start + +count).toString('hex'), command);
        assert.strictEqual(parseInt(lines, 16), +start, command);
    }
    const files = dumps.map(([, , , file]) => file.replace(/\d/, 'n'));
    assert.deepStrictEqual([...new Set(files)].sort(), ['GAME.PAL', 'IMG.n', 'MAP.n', 'SND.DAT', 'UIF.DAT']);
    return dumps.length;
}

async function main() {
    install();
    const names = ['palette', 'image_archive', 'map_archive', 'sound_archive', 'interface_file'];
    const [palette, images, maps, sounds, interface_] = await Promise.all(names.map(reader));
    const { colors } = palette('GAME.PAL')[0];
    for (const episode of [1, 2, 3]) {
        const pictures = checkImages(episode, images(`IMG.${episode}`), colors);
        console.log(`episode ${episode}: ${pictures} images, ${checkMaps(maps(`MAP.${episode}`))} maps`);
    }
    console.log(`${checkSounds(sounds('SND.DAT'))} files of sounds`);
    const [table, bytes] = interface_('UIF.DAT');
    checkEntries(table.entries, 32, bytes);
    console.log(`${checkDumps()} hex dumps`);
}

main().catch((error) => {
    console.error(error);
    process.exit(1);
});
