#include "edges.h"

#include <stdlib.h>

void pwm_edges_init(pwm_edges* e) {
  e->cycles = NULL;
  e->levels = NULL;
  e->count = 0;
  e->capacity = 0;
  e->level = 0;
}

void pwm_edges_free(pwm_edges* e) {
  free(e->cycles);
  free(e->levels);
  pwm_edges_init(e);
}

int pwm_edges_add(pwm_edges* e, uint64_t cycle, uint8_t level) {
  if (level == e->level)
    return 1;
  if (e->count == e->capacity) {
    size_t capacity = e->capacity ? 2 * e->capacity : 1024;
    uint64_t* cycles = realloc(e->cycles, capacity * sizeof *cycles);
    if (!cycles)
      return 0;
    e->cycles = cycles;
    uint8_t* levels = realloc(e->levels, capacity * sizeof *levels);
    if (!levels)
      return 0;
    e->levels = levels;
    e->capacity = capacity;
  }
  e->cycles[e->count] = cycle;
  e->levels[e->count] = level;
  e->count++;
  e->level = level;
  return 1;
}

size_t pwm_edges_since(const pwm_edges* e, uint64_t from) {
  size_t n = 0;
  for (size_t i = 0; i < e->count; i++)
    n += e->cycles[i] >= from;
  return n;
}

static int near(uint64_t a, uint64_t b, uint64_t tolerance) {
  return (a > b ? a - b : b - a) <= tolerance;
}

pwm_segment* pwm_edges_segments(const pwm_edges* e, uint64_t from, uint64_t tolerance,
                                size_t* count) {
  *count = 0;
  pwm_segment* out = e->count ? malloc(e->count * sizeof *out) : NULL;
  if (!out)
    return NULL;
  /* A period is rise, fall, rise: edges alternate, so a rise at i has its
   * fall at i + 1 and the next rise at i + 2. */
  for (size_t i = 0; i + 2 < e->count; i++) {
    if (!e->levels[i] || e->cycles[i] < from)
      continue;
    uint64_t period = e->cycles[i + 2] - e->cycles[i];
    uint64_t high = e->cycles[i + 1] - e->cycles[i];
    pwm_segment* last = *count ? &out[*count - 1] : NULL;
    if (last && near(last->period, period, tolerance) && near(last->high, high, tolerance)) {
      last->periods++;
      last->period = period;
      last->high = high;
      continue;
    }
    out[(*count)++] = (pwm_segment){e->cycles[i], 1, period, high};
  }
  if (!*count) {
    free(out);
    return NULL;
  }
  return out;
}
