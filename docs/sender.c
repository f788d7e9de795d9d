/* Sends a stream that Vistor reads: the time, the engine speed and two temperatures, 50 times a second, for
 * one second. The format is told in stream-format.md. On a microcontroller replace put_byte by the line's own
 * routine and main by a timer; a little-endian processor with IEEE floats is taken for granted. */
#include <stdint.h>
#include <stdio.h>
#include <string.h>

struct value {
    uint16_t channel;
    float value;
};

static uint16_t crc;

static void put_byte(uint8_t byte) {
    putchar(byte);
}

/* Writes one byte of the body: into the checksum as it is, on the line escaped where it has to be. */
static void put_body(uint8_t byte) {
    crc ^= byte;
    for (int bit = 0; bit < 8; bit++) crc = (uint16_t)((crc >> 1) ^ ((crc & 1) ? 0x8408 : 0));
    if (byte == 0x00 || byte == 0x7D || byte == 0x7E) {
        put_byte(0x7D);
        byte ^= 0x20;
    }
    put_byte(byte);
}

/* Sends one message of up to 21 values. */
static void send_message(uint8_t number, const struct value* values, uint8_t count) {
    uint16_t sum;
    crc = 0xFFFF;
    put_byte(0x7E);
    put_body(number);
    put_body(count);
    for (uint8_t i = 0; i < count; i++) {
        uint8_t bytes[4];
        memcpy(bytes, &values[i].value, 4);
        put_body((uint8_t)(values[i].channel & 0xFF));
        put_body((uint8_t)(values[i].channel >> 8));
        for (int k = 0; k < 4; k++) put_body(bytes[k]);
    }
    sum = crc ^ 0xFFFF; /* put_body goes on changing crc */
    put_body((uint8_t)(sum & 0xFF));
    put_body((uint8_t)(sum >> 8));
    put_byte(0x7E);
}

int main(void) {
    for (int i = 0; i < 50; i++) {
        const float seconds = (float)i * 0.02f;
        const struct value time[] = {{1, seconds}};
        const struct value engine[] = {{2, 2.0f * (3000.0f + 100.0f * (float)i)}}; /* two pulses a turn */
        const struct value temperatures[] = {{70, 82.5f}, {72, 95.0f + seconds}};
        send_message(1, time, 1);
        send_message(18, engine, 1);
        send_message(3, temperatures, 2);
    }
    return 0;
}
