/* pwm-measure: runs an AVR firmware image on libsimavr for a bounded number
 * of cycles and prints, as JSON, the waveform of two port pins: their edges
 * grouped into runs of equal period and high time, in cycles.
 *
 *   pwm-measure --mcu CORE [--freq HZ] --cycles N [--from CYCLE] [--tolerance CYCLES]
 *               [--port B] [--bit-a 1] [--bit-b 2] [--t1-clock HZ] [--trace 1] file.elf
 *
 * --t1-clock feeds Timer1's external clock input with a virtual clock, on the
 * cores where simavr models the T1 pin.
 *
 * The summary of each pin ("period", "high") is its last run at or after
 * --from; a run takes periods within --tolerance of its latest one. A pin
 * without an edge there is "steady" at its "level". simavr drives a timer pin
 * even when its DDR bit is clear, so "ddr" tells whether the firmware made it
 * an output. --trace 1 adds each pin's "trace": the cycle of every change of
 * level from the start, the first a rise. */
#include <fcntl.h>
#include <inttypes.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include <avr_ioport.h>
#include <avr_timer.h>
#include <sim_avr.h>
#include <sim_elf.h>

#include "edges.h"

enum { kShownSegments = 16 };

typedef struct {
  const char* mcu;
  uint32_t freq;
  uint64_t cycles;
  uint64_t from;
  uint64_t tolerance;
  char port;
  int bits[2];
  uint32_t t1Clock;
  int trace;
  const char* elf;
} options;

typedef struct {
  avr_t* avr;
  pwm_edges edges;
  int failed;
} pin_watch;

static void usage(void) {
  fprintf(stderr,
          "usage: pwm-measure --mcu CORE [--freq HZ] --cycles N [--from CYCLE] [--tolerance N]\n"
          "                   [--port B] [--bit-a 1] [--bit-b 2] [--t1-clock HZ] [--trace 1]\n"
          "                   file.elf\n");
  exit(2);
}

static uint64_t number(const char* text) {
  char* end = NULL;
  unsigned long long v = strtoull(text, &end, 10);
  if (!*text || *end)
    usage();
  return v;
}

static options parse(int argc, char** argv) {
  options o = {NULL, 16000000, 0, 0, 0, 'B', {1, 2}, 0, 0, NULL};
  for (int i = 1; i < argc; i++) {
    const char* a = argv[i];
    const char* v = i + 1 < argc ? argv[i + 1] : NULL;
    if (a[0] != '-') {
      o.elf = a;
      continue;
    }
    if (!v)
      usage();
    if (!strcmp(a, "--mcu"))
      o.mcu = v;
    else if (!strcmp(a, "--freq"))
      o.freq = (uint32_t)number(v);
    else if (!strcmp(a, "--cycles"))
      o.cycles = number(v);
    else if (!strcmp(a, "--from"))
      o.from = number(v);
    else if (!strcmp(a, "--tolerance"))
      o.tolerance = number(v);
    else if (!strcmp(a, "--port") && strlen(v) == 1)
      o.port = v[0];
    else if (!strcmp(a, "--bit-a"))
      o.bits[0] = (int)number(v);
    else if (!strcmp(a, "--bit-b"))
      o.bits[1] = (int)number(v);
    else if (!strcmp(a, "--t1-clock"))
      o.t1Clock = (uint32_t)number(v);
    else if (!strcmp(a, "--trace"))
      o.trace = (int)number(v);
    else
      usage();
    i++;
  }
  if (!o.mcu || !o.cycles || !o.elf || o.bits[0] > 7 || o.bits[1] > 7)
    usage();
  return o;
}

static void on_pin(struct avr_irq_t* irq, uint32_t value, void* param) {
  (void)irq;
  pin_watch* w = param;
  if (!pwm_edges_add(&w->edges, w->avr->cycle, (uint8_t)(value & 1)))
    w->failed = 1;
}

/* Sleeping firmware would otherwise be paced to wall-clock time. */
static void no_sleep(avr_t* avr, avr_cycle_count_t howLong) {
  (void)avr;
  (void)howLong;
}

/* simavr reports on stdout while it loads, and stdout carries our JSON: send
 * fd 1 to /dev/null between quiet_begin and quiet_end. */
static int quiet_begin(void) {
  fflush(stdout);
  int saved = dup(1);
  int null = open("/dev/null", O_WRONLY);
  if (saved >= 0 && null >= 0)
    dup2(null, 1);
  if (null >= 0)
    close(null);
  return saved;
}

static void quiet_end(int saved) {
  fflush(stdout);
  if (saved >= 0) {
    dup2(saved, 1);
    close(saved);
  }
}

static void print_pin(const char* name, const options* o, const pin_watch* w, int ddr) {
  size_t count = 0;
  pwm_segment* segs = pwm_edges_segments(&w->edges, o->from, o->tolerance, &count);
  size_t since = pwm_edges_since(&w->edges, o->from);
  const pwm_segment* last = count ? &segs[count - 1] : NULL;
  printf("  \"%s\": {\"port\": \"%c\", \"bit\": %d, \"ddr\": %d, \"level\": %d, \"edges\": %zu, "
         "\"steady\": %s, \"period\": %" PRIu64 ", \"high\": %" PRIu64 ", \"periods\": %u,\n",
         name, o->port, o->bits[name[0] - 'a'], ddr, w->edges.level, since,
         since ? "false" : "true", last ? last->period : 0, last ? last->high : 0,
         last ? last->periods : 0);
  printf("    \"segment_count\": %zu, \"segments\": [", count);
  size_t first = count > kShownSegments ? count - kShownSegments : 0;
  for (size_t i = first; i < count; i++)
    printf("%s{\"start\": %" PRIu64 ", \"periods\": %u, \"period\": %" PRIu64 ", \"high\": %" PRIu64
           "}",
           i == first ? "" : ", ", segs[i].start, segs[i].periods, segs[i].period, segs[i].high);
  printf("]");
  if (o->trace) {
    printf(",\n    \"trace\": [");
    for (size_t i = 0; i < w->edges.count; i++)
      printf("%s%" PRIu64, i ? ", " : "", w->edges.cycles[i]);
    printf("]");
  }
  printf("}");
  free(segs);
}

int main(int argc, char** argv) {
  options o = parse(argc, argv);
  elf_firmware_t fw;
  memset(&fw, 0, sizeof fw);
  int saved = quiet_begin();
  int read = elf_read_firmware(o.elf, &fw);
  avr_t* avr = read == 0 ? avr_make_mcu_by_name(o.mcu) : NULL;
  if (avr) {
    avr_init(avr);
    avr_load_firmware(avr, &fw);
  }
  quiet_end(saved);
  if (read != 0) {
    fprintf(stderr, "pwm-measure: cannot read %s\n", o.elf);
    return 1;
  }
  if (!avr) {
    fprintf(stderr, "pwm-measure: simavr has no core %s\n", o.mcu);
    return 1;
  }
  avr->frequency = o.freq;
  avr->sleep = no_sleep;

  if (o.t1Clock) {
    uint8_t virt = 1;
    float hz = (float)o.t1Clock;
    if (avr_ioctl(avr, AVR_IOCTL_TIMER_SET_VIRTCLK('1'), &virt) != 0 ||
        avr_ioctl(avr, AVR_IOCTL_TIMER_SET_FREQCLK('1'), &hz) != 0) {
      fprintf(stderr, "pwm-measure: %s takes no external Timer1 clock of %" PRIu32 " Hz\n", o.mcu,
              o.t1Clock);
      return 1;
    }
  }

  pin_watch watch[2];
  for (int c = 0; c < 2; c++) {
    watch[c].avr = avr;
    watch[c].failed = 0;
    pwm_edges_init(&watch[c].edges);
    avr_irq_t* irq = avr_io_getirq(avr, AVR_IOCTL_IOPORT_GETIRQ(o.port), o.bits[c]);
    if (!irq) {
      fprintf(stderr, "pwm-measure: %s has no port %c\n", o.mcu, o.port);
      return 1;
    }
    avr_irq_register_notify(irq, on_pin, &watch[c]);
  }

  int state = cpu_Running;
  while (avr->cycle < o.cycles) {
    state = avr_run(avr);
    if (state == cpu_Done || state == cpu_Crashed)
      break;
  }
  if (watch[0].failed || watch[1].failed) {
    fprintf(stderr, "pwm-measure: out of memory\n");
    return 1;
  }

  avr_ioport_state_t port;
  memset(&port, 0, sizeof port);
  int ddr = avr_ioctl(avr, AVR_IOCTL_IOPORT_GETSTATE(o.port), &port) == 0 ? (int)port.ddr : 0;
  printf("{\"mcu\": \"%s\", \"freq\": %" PRIu32 ", \"cycles\": %" PRIu64 ", \"from\": %" PRIu64
         ", \"state\": \"%s\",\n",
         o.mcu, o.freq, (uint64_t)avr->cycle, o.from,
         state == cpu_Crashed ? "crashed"
         : state == cpu_Done  ? "done"
                              : "running");
  print_pin("a", &o, &watch[0], (ddr >> o.bits[0]) & 1);
  printf(",\n");
  print_pin("b", &o, &watch[1], (ddr >> o.bits[1]) & 1);
  printf("\n}\n");
  for (int c = 0; c < 2; c++)
    pwm_edges_free(&watch[c].edges);
  avr_terminate(avr);
  return state == cpu_Crashed ? 1 : 0;
}
