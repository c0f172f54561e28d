// What is used of libqpdf.
//
// Clang 14, which looks for faults in the source, cannot read the library's own JSON in C++20: it asks for
// the end of a class inside of it. Nobody here uses that, and all else needs no more of it than its name.
#pragma once

#if defined(__clang__) && __clang_major__ < 16
#define JSON_HH
class JSON;
#endif

#include <qpdf/Buffer.hh>
#include <qpdf/Pipeline.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFEmbeddedFileDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>
