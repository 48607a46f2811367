meta:
  id: map_archive
  title: Map archive of the game Morvane (MAP.1 to MAP.3)
  endian: le
doc: The maps of one episode.
seq:
  - id: num_maps
    type: s2
    doc: A negative number counts as 0.
  - id: unknown
    size: 512
instances:
  maps:
    pos: 514
    type: map
    repeat: expr
    repeat-expr: 'num_maps > 0 ? num_maps : 0'
types:
  map:
    seq:
      - id: rows
        type: row
        repeat: expr
        repeat-expr: 64
        doc: Top row first.
  row:
    seq:
      - id: cells
        type: cell
        repeat: expr
        repeat-expr: 64
        doc: Leftmost cell first.
  cell:
    doc: What the codes look like is said by the symbol files, not by the game.
    seq:
      - id: plane0
        type: u1
        doc: Ground and walls.
      - id: plane1
        type: u1
        doc: What stands there; 0 is nothing.
