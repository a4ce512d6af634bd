/* SPDX-License-Identifier: GPL-3.0-or-later
 *
 * The interface of Tovik's visual plug-ins. A plug-in is a shared object with the extension ".svp"
 * or ".uvs" that exports one function, `tovik_vis_get`. It is put into the folder "Plugins/Vis" of
 * the player's data folder and stands in the menu of the spectrum area with the next start.
 *
 * Each plug-in that runs has a process of its own, with one thread: all functions are called there,
 * one after the other. That process
 *   - sees nothing of the player but what a frame brings;
 *   - has 512 MB of memory, and no input, output or error stream;
 *   - may read files, but not write any; starts no threads and no programs; has no network;
 *   - is ended when a frame takes longer than two seconds, when it crashes and when it exits.
 * None of this touches the player: what a faulty plug-in costs is its picture.
 *
 * A whole plug-in in C, whose screen gets brighter with the sound, with a colour that a click
 * changes:
 *
 *     #include <stdlib.h>
 *     #include <tovik/vis.h>
 *
 *     static void *begin(uint32_t width, uint32_t height, const char *settings) {
 *         uint32_t *colour = malloc(sizeof *colour);
 *         if (colour) *colour = 0xFF8000;
 *         return colour;
 *     }
 *
 *     static void render(void *self, const struct tovik_vis_frame *frame) {
 *         float loudest = 0;
 *         for (int i = 0; i < TOVIK_VIS_SAMPLES; ++i)
 *             if (frame->left[i] > loudest) loudest = frame->left[i];
 *         if (loudest > 1) loudest = 1;
 *         uint32_t colour = *(uint32_t *)self, light = (uint32_t)(loudest * 255), pixel = 0;
 *         for (int shift = 0; shift <= 16; shift += 8)
 *             pixel |= ((colour >> shift & 255) * light / 255) << shift;
 *         for (size_t i = 0; i < (size_t)frame->width * frame->height; ++i)
 *             frame->pixels[i] = pixel;
 *     }
 *
 *     static void click(void *self, int32_t x, int32_t y) { *(uint32_t *)self ^= 0xFFFFFF; }
 *
 *     static const struct tovik_vis vis = {
 *         .version = TOVIK_VIS_VERSION, .size = sizeof vis, .name = "Brightness",
 *         .begin = begin, .render = render, .click = click, .end = free,
 *     };
 *
 *     const struct tovik_vis *tovik_vis_get(void) { return &vis; }
 *
 * It is built with:  cc -shared -fPIC -O2 -I .../include brightness.c -o brightness.svp
 */
#ifndef TOVIK_VIS_H
#define TOVIK_VIS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* What `tovik_vis.version` says. Another number is not loaded. */
#define TOVIK_VIS_VERSION 1

/* The lengths of the arrays of a frame. */
#define TOVIK_VIS_SAMPLES 512
#define TOVIK_VIS_VALUES 256

/* One picture to be drawn. Everything in it lasts until `render` returns. */
struct tovik_vis_frame {
    /* width * height pixels, row by row from the top, 0x00RRGGBB; the upper eight bits do not
     * count. They hold what the call before left there, and black at first and after a resize. */
    uint32_t *pixels;
    uint32_t width;
    uint32_t height;

    /* What is heard now: the last 512 samples of each side, -1 to 1 but for what is too loud. A
     * mono track has the same on both sides. */
    const float *left;
    const float *right;

    /* 256 values: how much of each frequency is in the mean of both sides. Value n stands for
     * n * rate / 512 Hz; a sine of full scale in its middle gives 1. */
    const float *spectrum;

    /* Samples a second; 44100 as long as nothing else is told. */
    double rate;

    /* Seconds since `begin`, by a steady clock: frames come about 25 times a second, more or less
     * often as the user likes it, and not at all while nobody sees them. */
    double seconds;
};

/* What a plug-in is. The record and its name last as long as the process. */
struct tovik_vis {
    uint32_t version; /* TOVIK_VIS_VERSION */
    uint32_t size;    /* sizeof(struct tovik_vis) */

    /* For the menu: one line of UTF-8. A plug-in with an empty name is not offered. */
    const char *name;

    /* Makes ready for pictures of that size, at least 1 by 1; `settings` is the path of an INI file
     * that may exist or not. What it returns is handed to all others; NULL means that it cannot
     * begin, and ends it. */
    void *(*begin)(uint32_t width, uint32_t height, const char *settings);

    /* Draws a picture. */
    void (*render)(void *self, const struct tovik_vis_frame *frame);

    /* The left button went down on that pixel. May be NULL. */
    void (*click)(void *self, int32_t x, int32_t y);

    /* The next pictures have that size. May be NULL. */
    void (*resize)(void *self, uint32_t width, uint32_t height);

    /* The last call of an orderly end. May be NULL. */
    void (*end)(void *self);
};

/* What a plug-in exports. It is also called to learn the name alone: then nothing else follows. */
#if defined(__GNUC__)
__attribute__((visibility("default")))
#endif
const struct tovik_vis *tovik_vis_get(void);

#ifdef __cplusplus
}
#endif

#endif
