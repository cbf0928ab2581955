#pragma once

#include "ui/toolkit/dialogs/CommonDialogs.h"

namespace tavel::test {

// Stands in for the dialogs of colours, fonts, printers and pages for as long as it lives: keeps
// what was asked and answers what the test has put there.
class DialogRecorder : public CommonDialogs {
  public:
    DialogRecorder() { Service<CommonDialogs>::Use(this); }
    ~DialogRecorder() override { Service<CommonDialogs>::Use(nullptr); }
    DialogRecorder(const DialogRecorder&) = delete;
    DialogRecorder& operator=(const DialogRecorder&) = delete;

    ColorAnswer PickColor(const ColorRequest& request) override {
        color = request;
        colorAnswer.custom = request.custom;
        return colorAnswer;
    }
    FontAnswer PickFont(const FontRequest& request) override {
        font = request;
        return fontAnswer;
    }
    PrintAnswer PickPrinter(const PrintRequest& request) override {
        print = request;
        return printAnswer;
    }
    PageAnswer SetUpPage(const PageRequest& request) override {
        page = request;
        return pageAnswer;
    }

    ColorRequest color;
    FontRequest font;
    PrintRequest print;
    PageRequest page;
    ColorAnswer colorAnswer;
    FontAnswer fontAnswer;
    PrintAnswer printAnswer;
    PageAnswer pageAnswer;
};

}  // namespace tavel::test
