; A team's players, ten to a page, each with number, name, ratings, photo and who returns kicks.

.include "hardware.inc"
.include "format.inc"
.include "screen.inc"
.include "league.inc"

.export draw_roster
.importzp shown_team, roster_page

PAGE_SIZE  = 10
FIRST_ROW  = 6

; Every other player is of another color, in the upper halves of these attributes.
STRIPES       = ATTRIBUTES + 16
STRIPES_SIZE  = 40
STRIPE        = %00000101       ; palette 1
STRIPE_COLOR  = $3C

.segment "ZEROPAGE"
row:      .res 1
last:     .res 1                ; the first slot after the page
record:   .res 5

.segment "CODE"

.proc draw_roster
    lda shown_team
    sta team
    at 2, 2
    lda #17
    sta room
    jsr print_city
    ldx #1
    jsr print_blanks
    lda #9
    sta room
    jsr print_nickname
    say 3, 2, "RP  RS  MS  HP"
    lda #0
    ldx roster_page
    beq first
add_page:
    clc
    adc #PAGE_SIZE
    dex
    bne add_page
first:
    sta slot
    clc
    adc #PAGE_SIZE
    sta last
    lda #FIRST_ROW
    sta row
next:
    jsr draw_player
    inc row
    inc row
    inc slot
    lda slot
    cmp last
    bne next
    jsr draw_stripes
    say 27, 2, "QB + PS PC AC AP   K  + KA AB"
    say 28, 2, "Backs + BC RC   Def + PI QU"
    rts
.endproc

.proc draw_stripes
    lda #>STRIPES
    sta PPU_ADDRESS
    lda #<STRIPES
    sta PPU_ADDRESS
    lda #STRIPE
    ldx #STRIPES_SIZE
next:
    sta PPU_DATA
    dex
    bne next
    lda #STRIPE_COLOR
    sta colors+1*4+1
    rts
.endproc

; A player takes two rows.
.proc draw_player
    lda row
    ldx #1
    jsr move_to
    jsr print_position
    ldx #1
    jsr print_blanks
    lda #16
    sta room
    jsr print_player
    jsr draw_returns

    jsr read_record
    lda row
    clc
    adc #1
    ldx #1
    jsr move_to
    lda record+0
    jsr two_ratings
    lda record+1
    jsr two_ratings
    ldx slot
    lda record_size,x
    cmp #4
    bcc no_more
    lda record+3
    jsr two_ratings
    ldx slot
    lda record_size,x
    cmp #5
    bcc no_more
    lda record+4
    jsr two_ratings
no_more:
    rts
.endproc

.proc read_record
    use_high ATTRIBUTES_START
    point HighOf(ATTRIBUTES_START)
    lda #ATTRIBUTES_TEAM
    ldx team
    jsr skip_rows
    ldx slot
    lda record_offset,x
    ldx #1
    jsr skip_rows
    ldy #4
next:
    lda (pointer),y
    sta record,y
    dey
    bpl next
    rts
.endproc

; Prints the ratings in both nibbles of A.
.proc two_ratings
    pha
    lsr
    lsr
    lsr
    lsr
    jsr rating
    pla
    and #$0F
rating:
    tax
    lda rating_values,x
    sec
    jsr print_number
    ldx #1
    jmp print_blanks
.endproc

; Says who returns kicks and punts.
.proc draw_returns
    use_low RETURNERS
    ldx team
    lda LowOf(RETURNERS),x
    pha
    lsr
    lsr
    lsr
    lsr
    cmp slot
    bne no_kicks
    lda row
    ldx #27
    jsr move_to
    more "KR"
no_kicks:
    pla
    and #$0F
    cmp slot
    bne no_punts
    lda row
    ldx #29
    jsr move_to
    more "PR"
no_punts:
    rts
.endproc

.segment "RODATA"
rating_values:
    .byte 6, 13, 19, 25, 31, 38, 44, 50, 56, 63, 69, 75, 81, 88, 94, 100
; Quarterbacks, backs and receivers, line, defense, kickers.
record_size:
    .res 2, 5
    .res 10, 4
    .res 5, 3
    .res 11, 4
    .res 2, 4
record_offset:
    .repeat 2, i
    .byte 5*i
    .endrepeat
    .repeat 10, i
    .byte 2*5+4*i
    .endrepeat
    .repeat 5, i
    .byte 2*5+10*4+3*i
    .endrepeat
    .repeat 13, i
    .byte 2*5+10*4+5*3+4*i
    .endrepeat
