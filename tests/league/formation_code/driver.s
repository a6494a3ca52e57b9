; Calls a piece of formation code for each team, as a game does, and ends with code 0 if it leaves
; what it should, or else with the number of the first team for which it does not.

TEAMS = 28
TEAM  = $6E                     ; where the code looks for the team's number, from 0
exit  = $FFF9                   ; of the simulator, with the code in A

.segment "ZEROPAGE"
probe: .res 1                   ; what A and X have to be afterwards
stack: .res 1
way:   .res 1                   ; by which way the code left

.segment "HEADER"
    .byte "sim65", 2, 0, probe
    .addr leave_0, start

; What the test sets.
.segment "CASE"
code:       .addr 0
branches:   .byte 0             ; whether the ways differ, as the formations do
formations: .res TEAMS

.segment "CODE"
; Where the test lets the ways out lead.
leave_0:
    jmp left_by_0
    jmp left_by_1
    jmp left_by_2

start:
    ldx #$FF
    txs
    ldx #0
    stx TEAM
    stx way
next:
    tsx
    stx stack
    lda TEAM
    eor #$A5
    tax
    stx probe
    lda #$11                    ; neither is of use to the code
    ldy #$EE
    jmp (code)

left_by_2:
    inc way
left_by_1:
    inc way
left_by_0:
    cmp probe
    bne wrong
    cpx probe
    bne wrong
    tsx
    cpx stack
    bne wrong
    ldx TEAM
    tya
    cmp formations,x
    bne wrong
    lda branches
    beq any_way
    cpy way
    bne wrong
any_way:
    lda #0
    sta way
    inc TEAM
    lda TEAM
    cmp #TEAMS
    bne next
    lda #0
    jsr exit
wrong:
    ldx TEAM
    inx
    txa
    jsr exit
