#!/usr/bin/env node
/// <reference types="node" />
// The orders of a restaurant's kitchen: types, a queue, and a small view of it.
/* A comment may hold 'quotes', `marks` and // slashes. */
import { readFile } from 'node:fs/promises';
import type { ReactNode } from "react";

export const enum Course {
  Starter = 1,
  Main,
  Dessert = 0x10,
}

/** What a guest may order. */
interface Dish<Name extends string = string> {
  readonly name: Name;
  course: Course;
  minutes?: number;
  [extra: string]: unknown;
}

type State = 'waiting' | 'cooking' | 'ready';
type Getter<T> = { [K in keyof T as `get${Capitalize<string & K>}`]: () => T[K] };
type Inner<T> = T extends Promise<infer U> ? U : never;

declare global {
  interface Window { kitchen: Kitchen }
}

abstract class Station<T extends object> implements Iterable<T> {
  static #count = 0n;
  protected readonly items: T[] = [];
  declare private label?: string;

  constructor(public readonly name: string, private limit = 1_000) {
    Station.#count += 1n;
  }

  abstract accepts(item: T): item is T & Required<T>;

  *[Symbol.iterator](): IterableIterator<T> {
    yield* this.items;
  }
}

function logged<A extends unknown[], R>(target: (...args: A) => R, context: ClassMethodDecoratorContext) {
  return function (this: unknown, ...args: A): R {
    console.log(`${String(context.name)}(${args.length} values)`);
    return target.apply(this, args);
  };
}

export class Kitchen extends Station<Dish> {
  private states = new Map<Dish, State>();

  override accepts(dish: Dish): dish is Dish & Required<Dish> {
    return typeof dish.minutes === 'number' && dish.minutes < 90.5;
  }

  @logged
  async cook(dish: Dish, ...helpers: readonly string[]): Promise<State> {
    if (!this.accepts(dish)) throw new TypeError("It isn't \"ready\" yet: " + dish.name + '"');
    this.states.set(dish, 'cooking');
    for (const helper of helpers) console.info('with ' + helper + "\tand a knife");
    await new Promise<void>((resolve) => setTimeout(resolve, dish.minutes! * 60_000));
    return this.states.get(dish) ?? 'ready';
  }

  get waiting(): number {
    return [...this.states.values()].filter((state) => state === 'waiting').length;
  }

  static async from(path: string): Promise<Kitchen> {
    const kitchen = new Kitchen('main');
    const lines = (await readFile(path, { encoding: 'utf8' })).split(/\r?\n/);
    lines: for (let i = 0; i < lines.length; i++) {
      const [name, minutes] = lines[i].split(';') as [string, string | undefined];
      if (name === '') continue lines;
      kitchen.items.push({ name, course: Course.Main, minutes: Number(minutes) || undefined });
    }
    return kitchen;
  }
}

export function Board({ kitchen, children }: { kitchen: Kitchen; children?: ReactNode }) {
  const type = kitchen.waiting > 3 ? 'busy' : 'quiet';
  return (
    <section className={type} title="Today's board">
      <h1>The kitchen isn't {type}</h1>
      {[...kitchen].map((dish, index) => (
        <p key={index} onClick={() => void kitchen.cook(dish)}>{dish.name}</p>
      ))}
      {children}
    </section>
  );
}

const prices = { soup: 8.5, roast: 24, cake: 6 } as const satisfies Record<string, number>;
let total: number = Object.values(prices).reduce((sum, price) => sum + price, 0);
total = Math.round(total * 1e2) / 100;
if (total > Number.MAX_SAFE_INTEGER || Number.isNaN(total)) process.exit(1);
export default prices;
