; Prints to the name table while nothing is shown.

.include "hardware.inc"
.include "screen.inc"

.export open_screen, show_screen

.segment "ZEROPAGE"
pointer: .res 2                 ; what is read next
limit:   .res 2                 ; the first byte after a text
room:    .res 1                 ; how many characters a text may still print
before_capital: .res 1          ; whether a capital letter ends the text

.segment "BSS"
colors:  .res 32                ; four palettes of the background, four of the sprites

sprites = $0200

BLANK     = ' '
UNKNOWN   = $7F                 ; the tile of a byte that is not a character
HIDDEN    = $FF                 ; a sprite below the screen
BACKDROP  = $0C
TEXT      = $30
HEADING   = $28
HEADINGS  = 8                   ; bytes of attributes: the first four rows

.segment "CODE"

; Takes the picture off and starts an empty one, with a heading's color in the first four rows.
.proc open_screen
    lda #0
    sta PPU_CONTROL
    sta PPU_MASK
    tax
hide:
    lda #HIDDEN
    sta sprites,x
    inx
    bne hide

    lda #0
    tax
    jsr move_to
    ldy #30
rows:
    ldx #32
    jsr print_blanks
    dey
    bne rows
    ldx #0                      ; the attributes follow the characters
attributes:
    lda #0
    cpx #HEADINGS
    bcs heading_done
    lda #%11111111              ; palette 3
heading_done:
    sta PPU_DATA
    inx
    cpx #64
    bne attributes

    ldx #31
palettes:
    lda #TEXT
    sta colors,x
    dex
    bpl palettes
    lda #HEADING
    sta colors+3*4+1
    rts
.endproc

; Shows the picture from the next frame on.
.proc show_screen
    lda #>PALETTES
    sta PPU_ADDRESS
    lda #<PALETTES
    sta PPU_ADDRESS
    ldx #0
next:
    lda colors,x
    tay
    txa
    and #3
    bne own
    ldy #BACKDROP
own:
    sty PPU_DATA
    inx
    cpx #32
    bne next

    bit PPU_STATUS
blanking:
    bit PPU_STATUS
    bpl blanking
    lda #0
    sta OAM_ADDRESS
    lda #>sprites
    sta OAM_DMA
    lda #NMI_ON
    sta PPU_CONTROL
    lda #0
    sta PPU_SCROLL
    sta PPU_SCROLL
    lda #SHOW_ALL
    sta PPU_MASK
    rts
.endproc

; Continues to print in row A, column X; keeps X and Y.
.proc move_to
    sta room                    ; any place will do
    lsr
    lsr
    lsr
    ora #>NAME_TABLE
    sta PPU_ADDRESS
    lda room
    asl
    asl
    asl
    asl
    asl
    sta room
    txa
    ora room
    sta PPU_ADDRESS
    rts
.endproc

; Prints the text at A (low) and X (high), up to its zero.
.proc print_string
    sta pointer
    stx pointer+1
    ldy #0
next:
    lda (pointer),y
    beq done
    sta PPU_DATA
    iny
    bne next
done:
    rts
.endproc

; Prints the bytes from the pointer up to the first capital letter or the limit, as far as there is
; room.
.proc print_first_name
    lda #1
    bne print_bytes
.endproc

; The same, with capital letters.
.proc print_span
    lda #0
    ; continues
.endproc

.proc print_bytes
    sta before_capital
    ldy #0
next:
    lda room
    beq done
    lda pointer
    cmp limit
    lda pointer+1
    sbc limit+1
    bcs done
    lda (pointer),y
    ldx before_capital
    beq print
    cmp #'A'
    bcc print
    cmp #'Z'+1
    bcc done
print:
    jsr print_character
    dec room
    inc pointer
    bne next
    inc pointer+1
    jmp next
done:
    rts
.endproc

; Keeps all registers but A.
.proc print_character
    cmp #BLANK
    bcc unknown
    cmp #UNKNOWN
    bcc known
unknown:
    lda #UNKNOWN
known:
    sta PPU_DATA
    rts
.endproc

; Prints X blanks, at least one.
.proc print_blanks
    lda #BLANK
next:
    sta PPU_DATA
    dex
    bne next
    rts
.endproc

; Prints A as a decimal number in as many columns as it needs or, with the carry set, in three.
.proc print_number
    ldy #BLANK
    bcs begin
    ldy #0
begin:
    sty room                    ; what a leading zero is printed as, 0 for not at all
    ldx #0
hundreds:
    cmp #100
    bcc print_hundreds
    sbc #100
    inx
    bne hundreds
print_hundreds:
    jsr leading
    ldx #0
tens:
    cmp #10
    bcc print_tens
    sbc #10
    inx
    bne tens
print_tens:
    jsr leading
    jmp print_digit

leading:
    pha
    txa
    bne digit
    lda room
    beq skip
    cmp #BLANK
    beq write
digit:
    txa
    ora #'0'
    ldy #'0'                    ; later zeros count
    sty room
write:
    sta PPU_DATA
skip:
    pla
    rts
.endproc

; Prints a nibble.
.proc print_digit
    ora #'0'
    cmp #'9'+1
    bcc write
    adc #'A'-('9'+1)-1          ; the carry is set
write:
    sta PPU_DATA
    rts
.endproc

; Prints a byte as two hexadecimal digits; keeps X and Y.
.proc print_hex
    pha
    lsr
    lsr
    lsr
    lsr
    jsr print_digit
    pla
    and #$0F
    jmp print_digit
.endproc
