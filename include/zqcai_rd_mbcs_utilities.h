/* One element of a task's lists by number, counted from 1. Included by zqcai_rd_mbcs.h.
 *
 * A null buffer, or a bufferSize of 0 or less, asks for the size: the function returns the
 * element's length in bytes plus one and writes nothing. A buffer too small for the element
 * and its terminator gives -200228 and stays untouched. An index of 0 or past the end of the
 * list is refused. */
#ifndef ZQCAI_RD_MBCS_UTILITIES_H
#define ZQCAI_RD_MBCS_UTILITIES_H

int32 VorexGetNthTaskChannel(TaskHandle taskHandle, uInt32 index, char buffer[], int32 bufferSize);
int32 VorexGetNthTaskReadChannel(TaskHandle taskHandle, uInt32 index, char buffer[], int32 bufferSize);
int32 VorexGetNthTaskDevice(TaskHandle taskHandle, uInt32 index, char buffer[], int32 bufferSize);

#endif
