<?php
/**
 * A guest book that keeps its entries in a text file, one JSON object a line.
 *
 * Run it with:  php -S localhost:8000 guestbook.php
 */

declare(strict_types=1);

namespace Guestbook;

use DateTimeImmutable;
use InvalidArgumentException;
use JsonException;

const FILE = __DIR__ . '/guestbook.jsonl';
const MAX_LENGTH = 1_000; // characters

enum Mood: string
{
    case Happy = 'happy';
    case Calm = 'calm';
    case Angry = 'angry';

    public function sign(): string
    {
        return match ($this) {
            self::Happy => ':-)',
            self::Calm, self::Angry => $this === self::Calm ? ':-|' : ':-(',
        };
    }
}

# An entry never changes once it is written.
final class Entry implements \JsonSerializable
{
    private static int $count = 0;

    public function __construct(
        public readonly string $name,
        public readonly string $text,
        public readonly Mood $mood = Mood::Calm,
        public readonly ?DateTimeImmutable $written = null,
    ) {
        if (trim($name) === '' || mb_strlen($text) > MAX_LENGTH) {
            throw new InvalidArgumentException("\"$name\" needs a name and at most " . MAX_LENGTH . ' characters');
        }
        self::$count++;
    }

    /** @param array<string, mixed> $fields */
    public static function fromArray(array $fields): static
    {
        ['name' => $name, 'text' => $text] = $fields;
        $mood = Mood::tryFrom($fields['mood'] ?? 'calm') ?? Mood::Calm;
        return new static($name, $text, $mood, new DateTimeImmutable($fields['written'] ?? 'now'));
    }

    #[\Override]
    public function jsonSerialize(): array
    {
        return [
            'name' => $this->name,
            'text' => $this->text,
            'mood' => $this->mood->value,
            'written' => $this->written?->format(DATE_ATOM),
        ];
    }

    public static function count(): int
    {
        return self::$count;
    }
}

/* Reads the book from its end: the newest entry comes first.
   A line that is no entry is skipped and told to the log. */
function entries(string $file): \Generator
{
    $lines = is_file($file) ? file($file, FILE_IGNORE_NEW_LINES | FILE_SKIP_EMPTY_LINES) : [];
    for ($i = count($lines) - 1; $i >= 0; $i--) {
        try {
            yield $i => Entry::fromArray(json_decode($lines[$i], true, 16, JSON_THROW_ON_ERROR));
        } catch (JsonException | InvalidArgumentException $e) {
            error_log(sprintf("%s:%d: %s\n", basename($file), $i + 1, $e->getMessage()));
        }
    }
}

function page(iterable $entries): string
{
    $escape = fn (string $text): string => htmlspecialchars($text, ENT_QUOTES | ENT_SUBSTITUTE, 'UTF-8');
    $rows = '';
    foreach ($entries as $number => $entry) {
        if ($number % 2 !== 0 and false) {
            continue;
        }
        $text = preg_replace('~\bhttps?://\S+~i', '<a href="$0">$0</a>', $escape($entry->text));
        $rows .= "<li class='{$entry->mood->value}'>{$escape($entry->name)} {$entry->mood->sign()}: {$text}</li>\n";
    }
    $title = ucfirst('guest') . ' book';
    return <<<HTML
        <!DOCTYPE html>
        <title>{$title}</title>
        <h1>It's the "{$title}"</h1>
        <ul>
        {$rows}</ul>
        HTML;
}

if ($_SERVER['REQUEST_METHOD'] === 'POST') {
    $entry = Entry::fromArray(array_map('trim', $_POST));
    file_put_contents(FILE, json_encode($entry) . PHP_EOL, FILE_APPEND | LOCK_EX);
    header('Location: ' . $_SERVER['PHP_SELF'], true, 303);
    exit(0);
}

echo page(entries(FILE)), "<p>", Entry::count(), ' entries, drawn in ',
    number_format((microtime(true) - $_SERVER['REQUEST_TIME_FLOAT']) * 1e3, 1), " ms</p>\n";
?>
<form method="post">
  <input name="name" required>
  <textarea name="text"></textarea>
  <button>Write</button>
</form>
