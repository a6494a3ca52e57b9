; A team: its texts, formation, playbook and colors.

.include "hardware.inc"
.include "format.inc"
.include "screen.inc"
.include "league.inc"

.export draw_team
.importzp shown_team
.importzp STOCK, GOOD, BAD
.import read_formations, formation_a, formation_b, code_state

FIGURE        = $10             ; the first tile of a player in uniform, of three in four rows
FIGURE_ROW    = 16
FIGURE_COLUMN = 4
SECOND_COLUMN = 20
FIGURE_ATTRIBUTES = ATTRIBUTES + 8 * (FIGURE_ROW / 4)

JERSEY_COLORS = 6
SWATCH_ROW    = 22              ; of the champions' colors
SWATCH_COLUMN = 13

.segment "ZEROPAGE"
row:      .res 1
column:   .res 1
tile:     .res 1
sprite:   .res 1

.segment "CODE"

.proc draw_team
    lda shown_team
    sta team
    say 2, 2, "TEAM "
    ldx team
    inx
    txa
    clc
    jsr print_number
    more " OF 28"

    say 5, 2, "City      "
    lda #19
    sta room
    jsr print_city
    say 6, 2, "Name      "
    lda #19
    sta room
    jsr print_nickname
    say 7, 2, "Short     "
    jsr print_abbreviation

    jsr draw_formation
    jsr draw_playbook
    jsr draw_jerseys
    jmp draw_champions
.endproc

.proc draw_formation
    say 9, 2, "Formation "
    jsr read_formations
    lda code_state
    cmp #STOCK
    bne called
    more "as in a stock image"
    rts
called:
    cmp #BAD
    bne good
    more "CODE IS DAMAGED"
    rts
good:
    lda formation_a
    jsr print_formation
    lda formation_b
    cmp formation_a
    beq same
    say 10, 2, "but also  "
    lda formation_b
    jsr print_formation
same:
    rts
.endproc

; Prints formation A by name.
.proc print_formation
    cmp #1
    bne not_1
    more "1RB 4WR"
    rts
not_1:
    cmp #2
    bne not_2
    more "1RB 3WR 1TE"
    rts
not_2:
    more "2RB 2WR 1TE"
    rts
.endproc

; The plays' numbers, two of them in a byte: four runs, four passes.
.proc draw_playbook
    say 11, 2, "Runs      "
    use_low PLAYBOOKS
    jsr point_plays
    ldy #0
    jsr two_plays
    jsr two_plays
    say 12, 2, "Passes    "
    jsr point_plays
    ldy #2
    jsr two_plays
    ; continues
.endproc

.proc two_plays
    lda (pointer),y
    lsr
    lsr
    lsr
    lsr
    jsr play
    lda (pointer),y
    iny
    and #$0F
play:
    jsr print_digit
    ldx #1
    jmp print_blanks
.endproc

.proc point_plays
    point LowOf(PLAYBOOKS)
    lda #4
    ldx team
    jmp skip_rows
.endproc

; Both uniforms, worn, with the numbers of their colors.
.proc draw_jerseys
    use_low JERSEYS
    say FIGURE_ROW-2, FIGURE_COLUMN, "Jersey 1"
    say FIGURE_ROW-2, SECOND_COLUMN, "Jersey 2"
    jsr point_jersey
    ldy #0
    at FIGURE_ROW+1, FIGURE_COLUMN+4
    jsr three_colors
    at FIGURE_ROW+1, SECOND_COLUMN+4
    jsr three_colors
    ldy #JERSEY_COLORS-1
keep:
    lda (pointer),y
    ldx jersey_places,y
    sta colors,x
    dey
    bpl keep

    use_low JERSEY_COPY
    jsr point_copy
    ldy #0
    at FIGURE_ROW+2, FIGURE_COLUMN+4
    jsr two_colors
    at FIGURE_ROW+2, SECOND_COLUMN+4
    jsr two_colors

    lda #FIGURE_COLUMN
    ldx #%01010101              ; palette 1
    jsr draw_figure
    lda #SECOND_COLUMN
    ldx #%10101010              ; palette 2
    jmp draw_figure
.endproc

.proc point_jersey
    lda team
    cmp #DISPLACED_TEAM
    beq displaced
    point LowOf(JERSEYS)
    lda #JERSEY_ROW
    ldx team
    jmp skip_rows
displaced:
    point LowOf(DISPLACED_JERSEY)
    rts
.endproc

.proc point_copy
    point LowOf(JERSEY_COPY)
    lda #JERSEY_COPY_ROW
    ldx team
    jmp skip_rows
.endproc

.proc three_colors
    jsr one_color
    ; continues
.endproc

.proc two_colors
    jsr one_color
    ; continues
.endproc

.proc one_color
    lda (pointer),y
    iny
    jsr print_hex
    ldx #1
    jmp print_blanks
.endproc

; Draws a player in column A, with the attributes X.
.proc draw_figure
    sta column
    lsr
    lsr
    clc
    adc #<FIGURE_ATTRIBUTES
    tay
    lda #>FIGURE_ATTRIBUTES
    sta PPU_ADDRESS
    sty PPU_ADDRESS
    stx PPU_DATA
    lda #FIGURE_ROW
    sta row
    lda #FIGURE
    sta tile
rows:
    lda row
    ldx column
    jsr move_to
    ldx #3
tiles:
    lda tile
    sta PPU_DATA
    inc tile
    dex
    bne tiles
    inc row
    lda row
    cmp #FIGURE_ROW+4
    bne rows
    rts
.endproc

; The champions' colors as sprites, with their numbers.
.proc draw_champions
    say SWATCH_ROW, 2, "Division"
    use_low DIVISION_COLORS
    point LowOf(DIVISION_COLORS)
    lda #DIVISION_ROW
    ldx team
    jsr skip_rows
    lda #0
    sta sprite
    lda #SWATCH_ROW
    jsr draw_swatches
    say SWATCH_ROW+2, 2, "Conference"
    point LowOf(CONFERENCE_COLORS)
    lda #CONFERENCE_ROW
    ldx team
    jsr skip_rows
    lda #SWATCH_ROW+2
    ; continues
.endproc

; Draws the colors at the pointer in row A, up to the end of the row in swatch_places.
.proc draw_swatches
    sta row
    lda #SWATCH_COLUMN
    sta column
    ldy #0
next:
    lda row
    ldx column
    inx
    jsr move_to
    lda (pointer),y
    jsr print_hex
    ldx sprite
    lda swatch_places,x
    pha
    and #$7F
    tax
    lda (pointer),y
    sta colors,x
    jsr add_sprite
    inc sprite
    iny
    lda column
    clc
    adc #3
    sta column
    pla
    bpl next
    rts
.endproc

; A swatch of the color at place X of all palettes, at the row and column.
.proc add_sprite
    lda sprite
    asl
    asl
    sta tile
    txa
    and #%00001100
    lsr
    lsr
    pha
    txa
    and #%00000011
    ldx tile
    sta sprites+1,x             ; tiles 1 to 3 are full of one color
    pla
    sta sprites+2,x
    lda row
    asl
    asl
    asl
    sec
    sbc #1
    sta sprites,x
    lda column
    asl
    asl
    asl
    sta sprites+3,x
    rts
.endproc

.segment "RODATA"
; Where the palettes have the colors of the jerseys: first the shirt, then skin, then the rest.
jersey_places:
    .byte 1*4+1, 1*4+2, 1*4+3, 2*4+1, 2*4+2, 2*4+3
; And those of the champions, the last one of a row with bit 7.
swatch_places:
    .byte 16+1, 16+2, 16+3, 20+1, $80+20+2
    .byte 20+3, 24+1, 24+2, $80+24+3
