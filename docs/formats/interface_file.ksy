meta:
  id: interface_file
  title: Interface file of the game Morvane (UIF.DAT)
  endian: le
doc: |
  A table like that of the sound archive. The viewer reads it, but makes no use of it.
seq:
  - id: entries
    type: entry
    repeat: expr
    repeat-expr: 32
types:
  entry:
    seq:
      - id: size
        type: u2
      - id: offset
        type: s4
