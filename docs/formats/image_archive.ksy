meta:
  id: image_archive
  title: Image archive of the game Morvane (IMG.1 to IMG.3)
  endian: le
doc: |
  The wall and sprite images of one episode, in up to 511 groups of up to 255 images. Two tables describe the groups;
  images lie wherever the offsets of the groups point.
seq:
  - id: offsets
    type: s4
    repeat: expr
    repeat-expr: 512
    doc: Per group, where its first image lies. 0 and negative numbers say that there is no such group.
  - id: codes
    type: group_codes
    repeat: expr
    repeat-expr: 512
instances:
  groups:
    type: group(_index)
    repeat: expr
    repeat-expr: 512
    doc: Indexed by group number. Group 0 is never used, whatever the tables hold for it.
types:
  group_codes:
    doc: What a group says of itself.
    seq:
      - id: unknown_before
        size: 2
      - id: num_images
        type: u1
      - id: unknown_after
        size: 87
  group:
    params:
      - id: number
        type: s4
    instances:
      offset:
        value: _root.offsets[number]
      is_present:
        value: number > 0 and offset > 0
      is_duplicate:
        value: 'number > 1 and is_present and offset == _root.offsets[number > 1 ? number - 1 : 0]'
        doc: The same images as the group one number lower; such a group is not listed and not exported.
      images:
        io: _root._io
        pos: offset
        type: image
        repeat: expr
        repeat-expr: _root.codes[number].num_images
        if: is_present
        doc: One right behind the other.
  image:
    seq:
      - id: width
        type: u1
      - id: height
        type: u1
      - id: unknown1
        type: u4
      - id: unknown2
        type: u4
      - id: columns
        size: height
        repeat: expr
        repeat-expr: width
        doc: |
          Pixel values, leftmost column first, each column from top to bottom: columns[x][y] is the pixel x to the
          right of and y below the top left corner.
