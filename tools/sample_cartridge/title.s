; The first view: what this is, and the game settings.

.include "hardware.inc"
.include "format.inc"
.include "screen.inc"
.include "league.inc"

.export draw_title

BIG_ROW    = 12
BIG_COLUMN = 12

; Prints a text of the game settings, which has no end of its own.
.macro print_setting offset, length
    use_low offset
    point LowOf(offset)
    ldy #0
:   lda (pointer),y
    jsr print_character
    iny
    cpy #length
    bne :-
.endmacro

.segment "CODE"

.proc draw_title
    say 2, 9, "SAMPLE LEAGUE"
    say 5, 2, "This is not a game. It shows"
    say 6, 2, "what the image of a league"
    say 7, 2, "holds, read by a cartridge."

    say 10, 10, "ROSTER YEAR "
    print_setting YEAR, 4
    jsr draw_big_year

    say 16, 5, "LEAGUES  "
    print_setting LEAGUE_TEXT_1, 3
    more "  "
    print_setting LEAGUE_TEXT_2, 3
    more "  "
    print_setting LEAGUE_TEXT_3, 3

    say 20, 5, "A   next view"
    say 21, 5, "B   previous view"
    say 22, 5, "< > team, week or side"
    say 23, 5, "v ^ page"
    rts
.endproc

; The year in big digits, each of two tiles in two rows.
.proc draw_big_year
    use_low YEAR_TILES
    at BIG_ROW, BIG_COLUMN
    ldx #0
upper:
    jsr draw_tile
    cpx #8
    bne upper
    at BIG_ROW+1, BIG_COLUMN
    ldx #8
lower:
    jsr draw_tile
    cpx #16
    bne lower
    rts

draw_tile:
    ldy year_tiles,x
    lda LowOf(YEAR_TILES),y
    sta PPU_DATA
    inx
    rts
.endproc

.segment "RODATA"
; Where the tiles of the upper and the lower row are, from YEAR_TILES.
year_tiles:
    .byte $00, $01, $02, $10, $11, $12, $13, $21
    .byte $04, $05, $06, $14, $15, $16, $17, $25
