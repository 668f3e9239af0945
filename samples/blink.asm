; SPDX-License-Identifier: MIT
;
; PB0 に付けた LED を点滅させます。点滅の間隔は EEPROM の 0 番地から読みます。
; Blinks an LED at PB0. The pace comes from EEPROM address 0, in steps of 10 ms at 1 MHz: 50 is half
; a second on and half a second off, and 0 counts as 256.
;
; Runs on every AT90S chip from the 1200 up: no stack, no RAM, no interrupts, no instruction that
; the smallest core lacks. Other clocks change the pace only.
;
; Assembling:  avra blink.asm    gives blink.hex and blink.eep.hex; rename the second to blink.eep.

.device AT90S1200

; The same addresses on all of these chips.
.equ    PORTB   = 0x18
.equ    DDRB    = 0x17
.equ    EEARH   = 0x1F              ; only where the EEPROM has 512 bytes; elsewhere nothing is there
.equ    EEARL   = 0x1E
.equ    EEDR    = 0x1D
.equ    EECR    = 0x1C
.equ    EERE    = 0
.equ    EEWE    = 1
.equ    LEDPIN  = 0

.def    led     = r16               ; mask of the LED's bit
.def    level   = r17               ; what the port shows
.def    pace    = r18               ; the byte from the EEPROM
.def    tens    = r19               ; 10 ms still to wait
.def    ones    = r20               ; 1 ms still to wait
.def    fours   = r21               ; 4 cycles still to wait

.cseg
.org    0
        ldi     led, 1 << LEDPIN
        ldi     level, 0
        sbi     DDRB, LEDPIN        ; output

ready:  sbic    EECR, EEWE          ; no write may be going on
        rjmp    ready
        out     EEARH, level        ; both halves of the address start undefined
        out     EEARL, level
        sbi     EECR, EERE
        in      pace, EEDR

blink:  eor     level, led
        out     PORTB, level

        mov     tens, pace
wait10: ldi     ones, 10
wait1:  ldi     fours, 250          ; 250 times 4 cycles = 1 ms at 1 MHz
wait4:  nop
        dec     fours
        brne    wait4
        dec     ones
        brne    wait1
        dec     tens
        brne    wait10
        rjmp    blink

.eseg
.org    0
        .db     50
