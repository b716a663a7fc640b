/*
 * Transcript.cpp - user-interface events as JSON Lines records, keys in a
 * fixed order so that transcripts compare as text.
 */
#include "Transcript.h"

#include <nlohmann/json.hpp>

namespace corvane::host {

std::string toJsonLine(const UiEvent &event)
{
    using Record = nlohmann::ordered_json;
    Record record;
    switch (event.kind) {
    case UiEvent::Kind::error:
        record = {{"event", "error"}, {"text", event.text}};
        break;
    case UiEvent::Kind::message:
        record = {{"event", "message"}, {"type", event.type}, {"text", event.text},
                  {"answer", event.answer}};
        break;
    case UiEvent::Kind::progress:
        record = {{"event", "progress"}, {"label", event.text}, {"cancel", event.cancel}};
        break;
    case UiEvent::Kind::progressEnd:
        record = {{"event", "progress-end"}};
        break;
    case UiEvent::Kind::file:
        record = {{"event", "file"}, {"title", event.text}, {"answer", event.answer}};
        break;
    case UiEvent::Kind::help:
        record = {{"event", "help"}, {"page", event.text}};
        break;
    }
    /* Texts come from data files and may not be UTF-8: replace bad bytes
       rather than fail. */
    return record.dump(-1, ' ', false, Record::error_handler_t::replace);
}

} // namespace corvane::host
