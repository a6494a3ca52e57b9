#pragma once

#include "tools/driver/driver.h"

namespace rostermill::test {

using driver::AnswerNextFileDialog;
using driver::AnswerNextMessage;
using driver::ClickButton;
using driver::DialogsStillExpected;
using driver::Find;
using driver::OnNextDialog;

}  // namespace rostermill::test
