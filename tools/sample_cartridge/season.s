; The season, a week at a time.

.include "hardware.inc"
.include "format.inc"
.include "screen.inc"
.include "league.inc"

.export draw_season
.importzp week

FIRST_ROW  = 6
VISITORS   = 1                  ; columns
HOSTS      = 17
CITY_ROOM  = 13

.segment "ZEROPAGE"
games:    .res 2                ; the next game
left:     .res 1                ; how many follow
row:      .res 1

.segment "CODE"

.proc draw_season
    use_low WEEK_POINTERS
    say 2, 2, "WEEK "
    ldx week
    inx
    txa
    clc
    jsr print_number
    more " OF 17, "
    ldx week
    lda LowOf(WEEK_COUNTS),x
    cmp #MOST_GAMES
    bcc valid
    lda #MOST_GAMES
valid:
    sta left
    clc
    jsr print_number
    more " GAMES"

    lda week
    asl
    tax
    lda LowOf(WEEK_POINTERS),x
    sta games
    lda LowOf(WEEK_POINTERS + 1),x
    sta games+1
    lda #FIRST_ROW
    sta row
    lda left
    beq done
next:
    jsr draw_game
    inc row
    dec left
    bne next
done:
    rts
.endproc

; The visitors, then the hosts.
.proc draw_game
    ldx #VISITORS
    jsr draw_side
    lda row
    ldx #HOSTS-2
    jsr move_to
    lda #'@'
    jsr print_character
    ldx #HOSTS
    ; continues
.endproc

.proc draw_side
    lda row
    jsr move_to
    ldy #0
    lda (games),y
    sta team
    inc games
    bne number
    inc games+1
number:
    lda team
    cmp #TEAMS
    bcs no_team
    lda #CITY_ROOM
    sta room
    jmp print_city
no_team:
    bne not_afc
    more "AFC ALL-STARS"
    rts
not_afc:
    cmp #TEAMS+1
    bne not_nfc
    more "NFC ALL-STARS"
    rts
not_nfc:
    more "?"
    rts
.endproc
