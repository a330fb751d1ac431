-- Says what a highlight definition says, by the real Lua: one record a line, its fields separated by tabs. The test
-- compares the template maker's own reader, which runs nothing, with this.
local folder, file = ...
HL_LANG_DIR = folder .. "/"
dofile(folder .. "/" .. file)

local function say(...)
  print((table.concat({...}, "\t"):gsub("[\r\n]", " ")))
end

for _, keywords in ipairs(Keywords or {}) do
  for _, word in ipairs(keywords.List or {}) do say("word", word) end
end
for _, comment in ipairs(Comments or {}) do
  local marks = comment.Delimiter
  say("comment", marks[1], comment.Block and (marks[2] or marks[1]) or "")
end
if Strings then
  say("string", Strings.Delimiter or "")
  for _, pair in ipairs(Strings.DelimiterPairs or {}) do say("pair", pair.Open, pair.Close) end
end
