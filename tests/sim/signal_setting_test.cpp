// The text that says what an analog input sees: what it reads as, what it refuses, and that
// what the tool writes reads back the same.
#include "signal_setting.h"

#include <gtest/gtest.h>

namespace zqsim {
namespace {

struct Parsed {
  const char* text;
  WaveKind kind;
  double amplitude;
  double frequency;
  double offset;
  double noise;
};

class SignalText : public testing::TestWithParam<Parsed> {};

TEST_P(SignalText, ReadsAsItsWaveformWithItsSettingsAndTheRestDefault) {
  std::string error;
  const auto signal = parseSignalSetting(GetParam().text, &error);
  ASSERT_TRUE(signal) << error;
  EXPECT_EQ(signal->kind, GetParam().kind);
  EXPECT_EQ(signal->amplitude, GetParam().amplitude);
  EXPECT_EQ(signal->frequency, GetParam().frequency);
  EXPECT_EQ(signal->offset, GetParam().offset);
  EXPECT_EQ(signal->noise, GetParam().noise);
  const auto again = parseSignalSetting(formatSignalSetting(*signal), &error);
  ASSERT_TRUE(again) << formatSignalSetting(*signal) << ": " << error;
  EXPECT_EQ(*again, *signal);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SignalText,
    testing::Values(Parsed{"sine amplitude=2 frequency=50", WaveKind::kSine, 2, 50, 0, 0.001},
                    Parsed{"  SQUARE   frequency=5 duty=25 noise=0 ", WaveKind::kSquare, 1, 5, 0, 0},
                    Parsed{"triangle offset=-1.5e-1", WaveKind::kTriangle, 1, 10, -0.15, 0.001},
                    Parsed{"sawtooth phase=90 amplitude=0.25", WaveKind::kSawtooth, 0.25, 10, 0, 0.001},
                    Parsed{"noise amplitude=0.5", WaveKind::kNoise, 0.5, 10, 0, 0},
                    Parsed{"file path=\"/data/run 3.csv\" rate=200 column=2", WaveKind::kFile, 1, 10, 0, 0}));

TEST(SignalText, AQuotedPathKeepsItsBlanksAndEscapes) {
  std::string error;
  const auto signal = parseSignalSetting(R"(file path="C:\\data\\a \"b\".csv" format=f32)", &error);
  ASSERT_TRUE(signal) << error;
  EXPECT_EQ(signal->path, R"(C:\data\a "b".csv)");
  EXPECT_EQ(signal->format, FileFormat::kF32);
}

struct Refused {
  const char* text;
  const char* reason;  // a part of the explanation
};

class BadSignalText : public testing::TestWithParam<Refused> {};

TEST_P(BadSignalText, IsRefusedWithAReason) {
  std::string error;
  EXPECT_FALSE(parseSignalSetting(GetParam().text, &error));
  EXPECT_NE(error.find(GetParam().reason), std::string::npos) << error;
}

INSTANTIATE_TEST_SUITE_P(Texts, BadSignalText,
                         testing::Values(Refused{"", "no waveform"}, Refused{"blorp", "unknown waveform"},
                                         Refused{"sine amplitude", "key=value"},
                                         Refused{"sine amplitude=two", "amplitude must be a number"},
                                         Refused{"sine amplitude=-1", "cannot be negative"},
                                         Refused{"square duty=100", "duty"}, Refused{"file rate=10", "path"},
                                         Refused{"file path=x rate=0", "rate"},
                                         Refused{"sine path=\"open", "quote"},
                                         Refused{"sine colour=red", "colour"},
                                         Refused{"file path=x format=wav", "format"}));

}  // namespace
}  // namespace zqsim
