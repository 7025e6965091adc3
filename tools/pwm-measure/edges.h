/* The edges of one pin and what they say about its waveform: runs of equal
 * periods (segments), each with its period and high time in cycles. */
#pragma once

#include <stddef.h>
#include <stdint.h>

typedef struct {
  uint64_t start;   /* cycle of the segment's first rising edge */
  uint32_t periods; /* how many whole periods it holds */
  uint64_t period;  /* rising edge to rising edge, of the latest period */
  uint64_t high;    /* rising edge to falling edge, of the latest period */
} pwm_segment;

typedef struct {
  uint64_t* cycles; /* cycle of each change of level, in order */
  uint8_t* levels;  /* the level after that change */
  size_t count;
  size_t capacity;
  uint8_t level; /* the present level */
} pwm_edges;

void pwm_edges_init(pwm_edges* e);
void pwm_edges_free(pwm_edges* e);
/* Records a level; repeats of the present level are no edge. Answers 0 when
 * memory ran out. */
int pwm_edges_add(pwm_edges* e, uint64_t cycle, uint8_t level);

/* Splits the periods that begin at or after from into segments of equal
 * period and high time, in order. A period within tolerance cycles of the
 * segment's latest one (period and high time) joins it, and the segment then
 * shows the latest values: a first period stretched by a change settles. Answers an array to free()
 * and its length in *count; NULL when there is no whole period or memory ran out. */
pwm_segment* pwm_edges_segments(const pwm_edges* e, uint64_t from, uint64_t tolerance,
                                size_t* count);
/* Edges at or after from. */
size_t pwm_edges_since(const pwm_edges* e, uint64_t from);
