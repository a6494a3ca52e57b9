; Calls the formation code that a save writes, as a game does, and looks at what it leaves.

.include "hardware.inc"
.include "format.inc"
.include "screen.inc"
.include "league.inc"

.export read_formations, formation_a, formation_b, code_state
.exportzp STOCK, GOOD, BAD

STOCK = 0                       ; no such code there
GOOD  = 1
BAD   = 2                       ; it changes more than Y

PROBE = $5A                     ; any number, which the code gives back in X

.segment "BSS"
formation_a:  .res 1            ; what the first piece leaves in Y
formation_b:  .res 1            ; which way out the second piece takes
code_state:   .res 1
stack:        .res 1

.segment "CODE"

; For the team.
.proc read_formations
    lda #STOCK
    sta code_state
    use_low FORMATION_CODE_A
    lda LowOf(FORMATION_CODE_A)
    cmp #<CODE_MARK
    bne done
    lda LowOf(FORMATION_CODE_A + 1)
    cmp #>CODE_MARK
    bne done

    lda #GOOD
    sta code_state
    lda team
    sta FORMATION_TEAM
    jsr call_a
    use_low FORMATION_CODE_B
    jmp call_b
done:
    rts
.endproc

.proc call_a
    tsx
    stx stack
    ldx #PROBE
    jmp LowOf(FORMATION_CODE_A)
.endproc

.proc call_b
    tsx
    stx stack
    ldx #PROBE
    jmp LowOf(FORMATION_CODE_B)
.endproc

.proc leave_a
    sty formation_a
    jmp check
.endproc

.proc leave_b0
    ldy #0
    beq leave_b
.endproc

.proc leave_b1
    ldy #1
    bne leave_b
.endproc

.proc leave_b2
    ldy #2
    ; continues
.endproc

.proc leave_b
    sty formation_b
    ; continues
.endproc

; That A and X are the probe, and the stack is as it was.
.proc check
    cmp #PROBE
    bne bad
    cpx #PROBE
    bne bad
    tsx
    cpx stack
    beq good
bad:
    lda #BAD
    sta code_state
    ldx stack
    txs
good:
    rts
.endproc

; Where the code continues in its bank.
.segment "EXIT_A"
    jmp leave_a
.segment "EXIT_B0"
    jmp leave_b0
.segment "EXIT_B1"
    jmp leave_b1
.segment "EXIT_B2"
    jmp leave_b2
