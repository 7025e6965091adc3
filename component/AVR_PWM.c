/*
 * AVR_PWM.c - the code file of the AVR PWM component.
 * Read two ways: the sections below as keys, and the marked blocks as C code.
 * Its lines end in CR LF.
 *
[Settings]
Description=AVR PWM
IsAnalogue=0
MultipleAllowed=0

[MacroNames]
Count=5
1=EnableChannel
2=DisableChannel
3=SetDuty
4=ChangePeriod
5=SetDutyHighLow

[MacroReturns]
1=void
2=void
3=void
4=void
5=void

[MacroParameters_EnableChannel]
Count=1
1=Channel

[MacroParameters_DisableChannel]
Count=1
1=Channel

[MacroParameters_SetDuty]
Count=2
1=Channel
2=Duty

[MacroParameters_ChangePeriod]
Count=2
1=Period
2=Prescaler

[MacroParameters_SetDutyHighLow]
Count=3
1=Channel
2=DutyHigh
3=DutyLow

[MacroParamTypes_EnableChannel]
1=unsigned char

[MacroParamTypes_DisableChannel]
1=unsigned char

[MacroParamTypes_SetDuty]
1=unsigned char
2=unsigned char

[MacroParamTypes_ChangePeriod]
1=unsigned char
2=unsigned char

[MacroParamTypes_SetDutyHighLow]
1=unsigned char
2=unsigned char
3=unsigned char

[CCode]
 * The section above takes in any C line below that holds "=".
 */
/*DefinesCode_Start*/
/* PWM on Timer/Counter1 in fast PWM mode 14 (TOP = ICR1): channel 1 is
 * OC1A, channel 2 is OC1B. Channel 2 moves to OC1C when the alternative pin
 * is chosen, on the devices that have OC1C: ATmega64, ATmega128, ATmega640,
 * ATmega1280, ATmega1281, ATmega2560, ATmega2561, ATmega16U4, ATmega32U4.
 * One period is 2 x (period register + 1) timer counts. */
#include <avr/io.h>

#define ZV_PWM_PR2 %a
#define ZV_PWM_CLOCK %b
#define ZV_PWM_ALT %d

/* TOP = ICR1 = 2 x (period register + 1) - 1 must fit Timer1's 16 bits. */
#if (ZV_PWM_PR2) < 0 || (ZV_PWM_PR2) > 32767
#error "AVR PWM: period register %a is outside 0..32767, which Timer1 cannot do"
#endif

#if defined(__AVR_ATmega8__) || defined(__AVR_ATmega8A__) \
 || defined(__AVR_ATmega48__) || defined(__AVR_ATmega48A__) \
 || defined(__AVR_ATmega48P__) || defined(__AVR_ATmega48PA__) \
 || defined(__AVR_ATmega88__) || defined(__AVR_ATmega88A__) \
 || defined(__AVR_ATmega88P__) || defined(__AVR_ATmega88PA__) \
 || defined(__AVR_ATmega168__) || defined(__AVR_ATmega168A__) \
 || defined(__AVR_ATmega168P__) || defined(__AVR_ATmega168PA__) \
 || defined(__AVR_ATmega328__) || defined(__AVR_ATmega328P__)
#define ZV_PWM_DDR DDRB
#define ZV_PWM_PORT PORTB
#define ZV_PWM_A_BIT 1
#define ZV_PWM_B_BIT 2
#elif defined(__AVR_ATmega16__) || defined(__AVR_ATmega16A__) \
 || defined(__AVR_ATmega32__) || defined(__AVR_ATmega32A__) \
 || defined(__AVR_ATmega164A__) || defined(__AVR_ATmega164P__) \
 || defined(__AVR_ATmega164PA__) || defined(__AVR_ATmega324A__) \
 || defined(__AVR_ATmega324P__) || defined(__AVR_ATmega324PA__) \
 || defined(__AVR_ATmega644__) || defined(__AVR_ATmega644A__) \
 || defined(__AVR_ATmega644P__) || defined(__AVR_ATmega644PA__) \
 || defined(__AVR_ATmega1284__) || defined(__AVR_ATmega1284P__)
#define ZV_PWM_DDR DDRD
#define ZV_PWM_PORT PORTD
#define ZV_PWM_A_BIT 5
#define ZV_PWM_B_BIT 4
#elif defined(__AVR_ATmega64__) || defined(__AVR_ATmega128__) \
 || defined(__AVR_ATmega128A__) || defined(__AVR_ATmega640__) \
 || defined(__AVR_ATmega1280__) || defined(__AVR_ATmega1281__) \
 || defined(__AVR_ATmega2560__) || defined(__AVR_ATmega2561__) \
 || defined(__AVR_ATmega16U4__) || defined(__AVR_ATmega32U4__)
#define ZV_PWM_DDR DDRB
#define ZV_PWM_PORT PORTB
#define ZV_PWM_A_BIT 5
#define ZV_PWM_B_BIT 6
#define ZV_PWM_C_BIT 7
#else
#error "AVR PWM: the Timer1 output pins of this device are not known"
#endif

#if (ZV_PWM_ALT) && defined(ZV_PWM_C_BIT)
#define ZV_PWM_2_BIT ZV_PWM_C_BIT
#define ZV_PWM_2_OCR OCR1C
#define ZV_PWM_2_COM COM1C1
#else
#define ZV_PWM_2_BIT ZV_PWM_B_BIT
#define ZV_PWM_2_OCR OCR1B
#define ZV_PWM_2_COM COM1B1
#endif

#define ZV_PWM_CS_MASK ((1 << CS12) | (1 << CS11) | (1 << CS10))

static unsigned int zv_pwm_pr2;
static unsigned char zv_pwm_clock;
static unsigned char zv_pwm_on;
static unsigned char zv_pwm_duty1;
static unsigned char zv_pwm_duty2;

static inline void zv_pwm_pin(unsigned char bit, unsigned char high)
{
    if (high)
        ZV_PWM_PORT |= (unsigned char)(1 << bit);
    else
        ZV_PWM_PORT &= (unsigned char)~(1 << bit);
}

/* A duty inside the period runs on the compare output; off, 0, a duty of a
 * whole period or more, or a stopped clock disconnect it and drive the port
 * bit low or high. */
static inline void zv_pwm_output(unsigned char channel)
{
    unsigned char on = (unsigned char)(zv_pwm_on & channel);
    unsigned char duty = channel == 1 ? zv_pwm_duty1 : zv_pwm_duty2;
    unsigned char bit = channel == 1 ? ZV_PWM_A_BIT : ZV_PWM_2_BIT;
    unsigned char com = (unsigned char)(1 << (channel == 1 ? COM1A1 : ZV_PWM_2_COM));
    unsigned int compare = 2 * (unsigned int)duty - 1;

    if (on && duty != 0 && duty <= zv_pwm_pr2 && zv_pwm_clock != 0) {
        if (channel == 1)
            OCR1A = compare;
        else
            ZV_PWM_2_OCR = compare;
        zv_pwm_pin(bit, 0);
        TCCR1A |= com;
    } else {
        /* After the disconnect: simavr leaves the pin at the timer's level
         * until the port is written. */
        TCCR1A &= (unsigned char)~com;
        zv_pwm_pin(bit, on && duty > zv_pwm_pr2);
    }
}

/* ICR1 is not buffered, and simavr takes a new TOP or compare value only when
 * the clock bits change: stop the clock, write, start it again. */
static inline void zv_pwm_apply(unsigned char restart)
{
    unsigned char control = (unsigned char)(TCCR1B & ~ZV_PWM_CS_MASK);
    TCCR1B = control;
    ICR1 = 2 * (unsigned int)zv_pwm_pr2 + 1;
    if (restart)
        TCNT1 = 0;
    zv_pwm_output(1);
    zv_pwm_output(2);
    TCCR1B = (unsigned char)(control | zv_pwm_clock);
}

static inline void zv_pwm_set_duty(unsigned char channel, unsigned char duty)
{
    if (channel == 1)
        zv_pwm_duty1 = duty;
    else if (channel == 2)
        zv_pwm_duty2 = duty;
    else
        return;
    zv_pwm_apply(0);
}
/*DefinesCode_End*/
/*InitialisationCode_Start*/
/* Both pins are outputs and low before Timer1 starts: mode 14, both
 * channels off, period and clock source from the settings. */
ZV_PWM_PORT &= (unsigned char)~((1 << ZV_PWM_A_BIT) | (1 << ZV_PWM_2_BIT));
ZV_PWM_DDR |= (1 << ZV_PWM_A_BIT) | (1 << ZV_PWM_2_BIT);
TCCR1A = (1 << WGM11);
TCCR1B = (1 << WGM13) | (1 << WGM12);
zv_pwm_pr2 = ZV_PWM_PR2;
zv_pwm_clock = ZV_PWM_CLOCK;
zv_pwm_on = 0;
zv_pwm_apply(1);
/*InitialisationCode_End*/
/*InterruptCode_Start*/
/*InterruptCode_End*/
/*Macro_EnableChannel_Start*/
if (Channel == 1 || Channel == 2)
{
    zv_pwm_on |= Channel;
    zv_pwm_apply(0);
}
/*Macro_EnableChannel_End*/
/*Macro_DisableChannel_Start*/
if (Channel == 1 || Channel == 2)
{
    zv_pwm_on &= (unsigned char)~Channel;
    zv_pwm_apply(0);
}
/*Macro_DisableChannel_End*/
/*Macro_SetDuty_Start*/
zv_pwm_set_duty(Channel, Duty);
/*Macro_SetDuty_End*/
/*Macro_ChangePeriod_Start*/
/* Clock source codes are Timer1's CS1 bits; a code above 7 keeps the clock. */
zv_pwm_pr2 = Period;
if (Prescaler <= 7)
    zv_pwm_clock = Prescaler;
zv_pwm_apply(1);
/*Macro_ChangePeriod_End*/
/*Macro_SetDutyHighLow_Start*/
/* The ten-bit duty loses its two lowest bits. */
zv_pwm_set_duty(Channel, (unsigned char)(((DutyHigh & 3) << 6) | (DutyLow >> 2)));
/*Macro_SetDutyHighLow_End*/
