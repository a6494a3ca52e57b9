; The two all-star rosters, half of one to a page.

.include "hardware.inc"
.include "format.inc"
.include "screen.inc"
.include "league.inc"

.export draw_all_stars
.importzp side, stars_page

PAGE_SIZE  = 15
FIRST_ROW  = 6

.segment "ZEROPAGE"
place:    .res 1                ; in the roster, from 0
row:      .res 1

.segment "CODE"

.proc draw_all_stars
    lda side
    bne nfc
    say 2, 2, "AFC ALL-STARS"
    jmp rows
nfc:
    say 2, 2, "NFC ALL-STARS"
rows:
    lda #0
    ldx stars_page
    beq first
    lda #PAGE_SIZE
first:
    sta place
    lda #FIRST_ROW
    sta row
next:
    jsr draw_star
    inc place
    inc row
    lda row
    cmp #FIRST_ROW+PAGE_SIZE
    bne next
    rts
.endproc

.proc draw_star
    lda row
    ldx #1
    jsr move_to
    lda place
    sta slot
    jsr print_position
    ldx #1
    jsr print_blanks

    use_low ALL_STARS
    point LowOf(ALL_STARS)
    lda #SIDE_SIZE
    ldx side
    jsr skip_rows
    lda #2
    ldx place
    jsr skip_rows
    ldy #0
    lda (pointer),y
    sta team
    iny
    lda (pointer),y
    sta slot
    lda team
    cmp #TEAMS
    bcs nobody
    lda slot
    cmp #SLOTS
    bcs nobody
    jsr print_abbreviation
    ldx #1
    jsr print_blanks
    lda #17
    sta room
    jmp print_player
nobody:
    more "-"
    rts
.endproc
