; Starts the console, and lets the controller page through the views.

.include "hardware.inc"
.include "format.inc"
.include "screen.inc"
.include "league.inc"

.import open_screen, show_screen
.import draw_title, draw_team, draw_roster, draw_season, draw_all_stars
.exportzp shown_team, week, side, roster_page, stars_page

.segment "ZEROPAGE"
frame:       .res 1             ; counts frames
buttons:     .res 1             ; which are down
pressed:     .res 1             ; which went down in this frame
view:        .res 1
count:       .res 1
; What the views page through, all from 0.
shown_team:  .res 1
week:        .res 1
side:        .res 1
roster_page: .res 1
stars_page:  .res 1
nothing:     .res 1

VIEWS = 5

.segment "CODE"

.proc reset
    sei
    cld
    ldx #$40
    stx FRAME_COUNTER           ; no interrupts from there
    ldx #$FF
    txs
    inx
    stx PPU_CONTROL
    stx PPU_MASK
    stx DMC_CONTROL
    stx IRQ_OFF
    stx MIRRORING
    txa
clear:
    sta $00,x
    sta $0300,x
    inx
    bne clear

    ldx #5
character_banks:
    stx BANK_SELECT
    lda tile_banks,x
    sta BANK_DATA
    dex
    bpl character_banks

    ldx #2                      ; the picture unit needs two frames to start
    bit PPU_STATUS
warm_up:
    bit PPU_STATUS
    bpl warm_up
    dex
    bne warm_up
.endproc

.proc main
    jsr open_screen
    jsr draw
    jsr show_screen
input:
    jsr wait_frame
    jsr read_buttons
    lda pressed
    beq input
    jsr turn
    jmp main
.endproc

; Calls the view's routine.
.proc draw
    lda view
    asl
    tax
    lda draw_routines,x
    sta pointer
    lda draw_routines+1,x
    sta pointer+1
    jmp (pointer)
.endproc

.proc wait_frame
    lda frame
same:
    cmp frame
    beq same
    rts
.endproc

.proc read_buttons
    ldx buttons
    lda #1
    sta JOYPAD
    sta buttons                 ; comes out of it after eight bits
    lsr
    sta JOYPAD
next:
    lda JOYPAD
    lsr
    rol buttons
    bcc next
    txa
    eor #$FF
    and buttons
    sta pressed
    rts
.endproc

; Does what the pressed buttons say.
.proc turn
    lda pressed
    and #BUTTON_A|BUTTON_START|BUTTON_SELECT
    beq not_next
    lda #VIEWS
    ldx #view
    jmp forward
not_next:
    lda pressed
    and #BUTTON_B
    beq not_previous
    lda #VIEWS
    ldx #view
    jmp back
not_previous:
    ldy view
    lda pressed
    and #BUTTON_LEFT|BUTTON_RIGHT
    beq up_or_down
    and #BUTTON_RIGHT
    php
    lda across_counts,y
    ldx across,y
    plp
    bne forward
    jmp back
up_or_down:
    lda pressed
    and #BUTTON_DOWN
    php
    lda down_counts,y
    ldx down,y
    plp
    bne forward
    jmp back
.endproc

; Adds 1 to the number at X of the zero page; 0 follows A - 1.
.proc forward
    sta count
    inc 0,x
    lda 0,x
    cmp count
    bcc done
    lda #0
    sta 0,x
done:
    rts
.endproc

; The other direction.
.proc back
    ldy 0,x
    bne less
    sta 0,x
less:
    dec 0,x
    rts
.endproc

.proc nmi
    inc frame
    rti
.endproc

.proc irq
    rti
.endproc

.segment "RODATA"
draw_routines:
    .addr draw_title, draw_team, draw_roster, draw_season, draw_all_stars
; For each view, what left and right change and how many there are, and the same for up and down.
across:
    .byte nothing, shown_team, shown_team, week, side
across_counts:
    .byte 1, TEAMS, TEAMS, WEEKS, 2
down:
    .byte nothing, nothing, roster_page, nothing, stars_page
down_counts:
    .byte 1, 1, 3, 1, 2
; Numbers of character banks of 1,024 bytes: the tiles of this program, in the image's last bank of
; 8,192, and what follows them there.
tile_banks:
    .byte 120, 122, 124, 125, 126, 127

.segment "VECTORS"
    .addr nmi, reset, irq
