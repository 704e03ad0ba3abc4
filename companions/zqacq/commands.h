// The commands of zqacq; each takes the command line after its name and returns the exit code.
#pragma once

namespace zqacq {

int readCommand(int argc, char** argv);
int writeCommand(int argc, char** argv);
int countCommand(int argc, char** argv);
int pulseCommand(int argc, char** argv);
int devicesCommand(int argc, char** argv);
int errorCommand(int argc, char** argv);

}  // namespace zqacq
