// SPDX-License-Identifier: MIT
// Preloaded into Wine (LD_PRELOAD): gives a pseudo-terminal the modem lines and the counters of a
// serial port. Wine asks for them while a program waits for bytes, and gives the wait up without.
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <linux/serial.h>
#include <stdarg.h>
#include <string.h>
#include <sys/ioctl.h>

enum { kDescriptors = 4096 };

// Bytes that Wine was told of, by descriptor: it takes a higher count for an event.
static int received[kDescriptors];

int ioctl(int descriptor, unsigned long request, ...) {
    static int (*real)(int, unsigned long, ...);
    va_list arguments;
    va_start(arguments, request);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    if (!real) {
        real = (int (*)(int, unsigned long, ...))dlsym(RTLD_NEXT, "ioctl");
    }
    const int result = real(descriptor, request, argument);
    // A far end that went away fails with EIO, which stays a failure.
    if (result != -1 || errno == EIO || descriptor < 0 || descriptor >= kDescriptors) {
        return result;
    }
    switch (request) {
        case TIOCGICOUNT: {
            int waiting = 0;
            if (real(descriptor, FIONREAD, &waiting) == 0 && waiting > 0) {
                ++received[descriptor];
            }
            memset(argument, 0, sizeof(struct serial_icounter_struct));
            ((struct serial_icounter_struct*)argument)->rx = received[descriptor];
            return 0;
        }
        case TIOCMGET:
            *(int*)argument = TIOCM_DSR | TIOCM_CTS | TIOCM_CAR;
            return 0;
        case TIOCMSET:
        case TIOCMBIS:
        case TIOCMBIC:
            return 0;
        default:
            return result;
    }
}
