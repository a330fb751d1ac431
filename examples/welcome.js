// Welcome to Quillmark. This file is yours to change. What is coloured, and how, stands in
// the template JavaScript.def: words, comments and strings are all lines of a plain text file.
// Run it with: node welcome.js
'use strict';

const shelf = [
  { title: 'The Winter Garden', pages: 312, read: true, tags: ['novel'] },
  { title: 'Knots and How to Undo Them', pages: 96, read: false, tags: ['craft', 'sea'] },
  { title: 'A Field Guide to Lichens', pages: 204, read: true, tags: ['nature'] },
  { title: 'Letters from the Lighthouse', pages: 178, read: false, tags: ['novel', 'sea'] },
];

/**
 * One reader with a steady pace.
 */
class Reader {
  #pagesPerDay;

  constructor(name, pagesPerDay = 25) {
    if (!Number.isInteger(pagesPerDay) || pagesPerDay < 1) {
      throw new RangeError(`Not a pace: ${pagesPerDay}`);
    }
    this.name = name;
    this.#pagesPerDay = pagesPerDay;
  }

  get pace() {
    return this.#pagesPerDay;
  }

  daysFor(book) {
    return Math.ceil(book.pages / this.#pagesPerDay);
  }
}

/* Counts how many books carry each tag; the result is sorted by name. */
function countTags(books) {
  const counts = new Map();
  for (const tag of books.flatMap((book) => book.tags)) {
    counts.set(tag, (counts.get(tag) ?? 0) + 1);
  }
  return [...counts].sort(([a], [b]) => a.localeCompare(b));
}

// Yields the days on which something is finished, one after the other.
function* finishDays(reader, books, start) {
  let day = 0;
  for (const book of books) {
    day += reader.daysFor(book);
    const date = new Date(start);
    date.setUTCDate(date.getUTCDate() + day);
    yield { title: book.title, date };
  }
}

const pause = (milliseconds) => new Promise((resolve) => setTimeout(resolve, milliseconds));

async function main() {
  const reader = new Reader('Ada', 40);
  const waiting = shelf.filter((book) => !book.read);
  const pages = waiting.reduce((sum, book) => sum + book.pages, 0);

  console.log(`${reader.name} reads ${reader.pace} pages a day.`);
  console.log('Waiting:', waiting.length, 'books,', pages, 'pages');

  const format = new Intl.DateTimeFormat('en-GB', { dateStyle: 'long', timeZone: 'UTC' });
  for (const { title, date } of finishDays(reader, waiting, Date.UTC(2026, 10, 24))) {
    await pause(20);
    console.log(format.format(date).padEnd(18), title);
  }

  console.table(Object.fromEntries(countTags(shelf)));
  console.log(JSON.stringify({ done: true, left: null, ratio: waiting.length / shelf.length }));
}

main().catch((error) => {
  console.error(error);
  process.exitCode = 1;
});
