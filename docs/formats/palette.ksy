meta:
  id: palette
  title: Palette of the game Morvane (GAME.PAL)
  endian: le
doc: |
  The 256 colours that the pixels of all image archives refer to. The file has no mark to know it by.
seq:
  - id: head
    size: 1156
    doc: Of no known use.
  - id: colors
    type: color
    repeat: expr
    repeat-expr: 256
    doc: In the order of pixel values, 0 first. Bytes may follow; they have no known use.
types:
  color:
    doc: One colour. Intensities go from 0 to 255 and are taken as they are.
    seq:
      - id: red
        type: u1
      - id: green
        type: u1
      - id: blue
        type: u1
