// Writes past the end of the RAM, which stops the core.
#include <stdint.h>

int main(void)
{
    *(volatile uint8_t*)0x1234 = 1;
    for (;;) {
    }
}
