#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "host/db/db.h"

namespace edhost {

/// One thing that a person does at a prompt.
struct PromptAnswer {
  enum class Kind {
    Text,    ///< types `text` and Enter: a number, a keyword, coordinates, a name, a line
    Point,   ///< points at `point`, in the current UCS
    Entity,  ///< picks the entity `id`; at `point` when hasPoint, else somewhere on it
    Enter,   ///< Enter alone
    Cancel   ///< Escape
  };
  Kind kind = Kind::Cancel;
  std::wstring text;
  AcGePoint3d point;
  bool hasPoint = false;
  AcDbObjectId id;
  Adesk::GsMarker marker = 0;
};

/// Who answers prompts. A queue by default; a program may put a person's terminal in its place.
class PromptSource {
 public:
  virtual ~PromptSource() = default;
  /// The next answer, or none: then the prompt counts as cancelled.
  virtual std::optional<PromptAnswer> next(const std::wstring& prompt) = 0;
};

/// Answers given beforehand, taken first in, first out.
class PromptQueue : public PromptSource {
 public:
  PromptQueue& text(std::wstring value);
  PromptQueue& number(double value);
  PromptQueue& point(const AcGePoint3d& value);
  PromptQueue& point(double x, double y, double z = 0.0) { return point(AcGePoint3d(x, y, z)); }
  PromptQueue& entity(const AcDbObjectId& id, Adesk::GsMarker marker = 0);
  PromptQueue& entity(const AcDbObjectId& id, const AcGePoint3d& at, Adesk::GsMarker marker = 0);
  PromptQueue& enter();
  PromptQueue& cancel();

  bool empty() const { return m_answers.empty(); }
  std::size_t size() const { return m_answers.size(); }
  void clear() { m_answers.clear(); }
  std::optional<PromptAnswer> next(const std::wstring& prompt) override;

  void push(PromptAnswer answer) { m_answers.push_back(std::move(answer)); }
  void pushFront(PromptAnswer answer) { m_answers.push_front(std::move(answer)); }

 private:
  std::deque<PromptAnswer> m_answers;
};

/// The queue that prompts are answered from.
PromptQueue& promptQueue();

/// Puts another source behind the queue, asked when the queue is empty; returns the former one. Not owned; null: none.
PromptSource* setPromptSource(PromptSource* source);

}  // namespace edhost
