meta:
  id: sound_archive
  title: Sound archive of the game Morvane (SND.DAT)
  endian: le
doc: |
  Instrument banks, songs and sounds, each a complete file of its own format. A table of fixed length says where they
  lie.
seq:
  - id: entries
    type: entry
    repeat: expr
    repeat-expr: 160
enums:
  kind:
    0: none
    1: inst_bank
    2: midi
    3: voc
types:
  entry:
    seq:
      - id: size
        type: u2
      - id: offset
        type: s4
    instances:
      is_present:
        value: offset > 0 and size > 0
      len_head:
        value: |
          not is_present or offset > _root._io.size ? 0 :
          _root._io.size - offset < 19 ? _root._io.size - offset : 19
        doc: How much of a mark there is to read, also past the end of a short entry.
      head:
        io: _root._io
        pos: offset
        size: len_head
        type: str
        encoding: ISO-8859-1
        if: len_head > 0
      entry_kind:
        value: |
          len_head >= 3 and head.substring(0, 3) == "IBK" ? kind::inst_bank :
          len_head >= 4 and head.substring(0, 4) == "MThd" ? kind::midi :
          len_head >= 19 and head == "Creative Voice File" ? kind::voc : kind::none
        doc: What the first bytes tell. Entries of no kind are not listed and not exported.
      data:
        io: _root._io
        pos: offset
        size: size
        if: is_present
