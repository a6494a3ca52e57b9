; Reads teams and players through the banks.

.include "hardware.inc"
.include "format.inc"
.include "screen.inc"
.include "league.inc"

.segment "ZEROPAGE"
team:     .res 1                ; from 0, whom the routines below print
slot:     .res 1                ; from 0
row_size: .res 1

.segment "CODE"

; Puts bank A at 0x8000.
.proc low_bank
    ldx #BANK_LOW
    stx BANK_SELECT
    sta BANK_DATA
    rts
.endproc

; Puts bank A at 0xA000.
.proc high_bank
    ldx #BANK_HIGH
    stx BANK_SELECT
    sta BANK_DATA
    rts
.endproc

; Moves the pointer X rows of A bytes on.
.proc skip_rows
    sta row_size
    inx
next:
    dex
    beq done
    clc
    lda pointer
    adc row_size
    sta pointer
    bcc next
    inc pointer+1
    bcs next
done:
    rts
.endproc

; From a place in a table of pointers: to where it points, up to where the next one does.
.proc follow_pointer
    ldy #3
    lda (pointer),y
    sta limit+1
    dey
    lda (pointer),y
    sta limit
    dey
    lda (pointer),y
    pha
    dey
    lda (pointer),y
    sta pointer
    pla
    sta pointer+1
    rts
.endproc

; Prints the team's city, as far as there is room.
.proc print_city
    point HighOf(CITY_POINTERS)
    jmp print_team_text
.endproc

.proc print_nickname
    point HighOf(NICKNAME_POINTERS)
    ; continues
.endproc

.proc print_team_text
    use_high CITY_POINTERS
    lda #2
    ldx team
    jsr skip_rows
    jsr follow_pointer
    jmp print_span
.endproc

.proc print_abbreviation
    use_high ABBREVIATIONS
    point HighOf(ABBREVIATIONS)
    lda #ABBREVIATION_SIZE
    ldx team
    jsr skip_rows
    ldy #0
next:
    lda (pointer),y
    jsr print_character
    iny
    cpy #ABBREVIATION_SIZE
    bne next
    rts
.endproc

; Prints the label of the slot, in four columns.
.proc print_position
    lda slot
    asl
    asl
    tax
    ldy #4
next:
    lda positions,x
    jsr print_character
    inx
    dey
    bne next
    rts
.endproc

; Prints number and name of the team's player at the slot: "#42 sam PLOVER".
.proc print_player
    use_low NAME_POINTERS
    lda #BankOf(NAME_POINTERS + BANK_SIZE)
    jsr high_bank
    point LowOf(NAME_POINTERS)
    lda #2*SLOTS
    ldx team
    jsr skip_rows
    lda #2
    ldx slot
    jsr skip_rows
    jsr follow_pointer

    lda #'#'
    jsr print_character
    ldy #0
    lda (pointer),y
    jsr print_hex               ; its hexadecimal digits are those of the number
    inc pointer
    bne name
    inc pointer+1
name:
    ldx #1
    jsr print_blanks
    jsr print_first_name        ; leaves the pointer at the last name
    ldx #1
    jsr print_blanks
    jmp print_span
.endproc

.segment "RODATA"
positions:
    .byte "QB 1QB 2RB 1RB 2RB 3RB 4WR 1WR 2WR 3WR 4TE 1TE 2C   LG  RG  LT  RT  "
    .byte "RE  NT  LE  ROLBRILBLILBLOLBRCB LCB FS  SS  K   P   "
